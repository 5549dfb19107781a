#include "vemoview/render/draw/Stroke.h"

#include "vemoview/render/draw/PieceActors.h"
#include "vemoview/render/draw/PieceJoiner.h"

#include <vtkPlaneCollection.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <utility>

namespace vemo {

Stroke::Stroke(std::vector<Piece> members, vtkRenderer& renderer, vtkPlaneCollection& planes)
    : _members(std::move(members)),
      _isShown(_members.size(), false),
      _isDrawn(_members.size(), false),
      _renderer(&renderer),
      _planes(&planes) {}

void Stroke::show(const DrawableSet& shown, double pixelScale) {
  std::vector<bool> wanted(_members.size());
  std::transform(_members.begin(), _members.end(), wanted.begin(),
                 [&](const Piece& piece) { return shown.contains(piece.drawable); });
  if (wanted == _isShown) {
    return;
  }
  _isShown = std::move(wanted);
  const bool isAnyShown = std::find(_isShown.begin(), _isShown.end(), true) != _isShown.end();
  if (isAnyShown && _isShown != _isDrawn) {
    make(pixelScale);
  }
  _props->show(isAnyShown);
}

void Stroke::make(double pixelScale) {
  std::vector<const Piece*> pieces;
  forEachShown([&](const Piece& piece) { pieces.push_back(&piece); });
  _props = std::make_unique<PropGroup>(*_renderer);
  addActors(join(pieces), *_planes, *_props);
  _props->scalePixels(pixelScale);
  _isDrawn = _isShown;
}

void Stroke::scalePixels(double factor) {
  if (_props != nullptr) {
    _props->scalePixels(factor);
  }
}

}  // namespace vemo
