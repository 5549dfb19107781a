#include "vemoview/resolve/decorations/DecorationParts.h"

#include "geometry/Box.h"
#include "vemoview/resolve/canvas/ViewVolume.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include "vemoview/resolve/decorations/TriadResolver.h"
#include <vemo/resolve/UsualPicture.h>

#include <algorithm>
#include <array>

namespace vemo {

namespace {

/// With the widest letters.
TextBox estimatedBox(const TextDecoration& text, double lineHeight) {
  using Horizontal = TextDecoration::Horizontal;
  using Vertical = TextDecoration::Vertical;
  const Vector<2, double> extent = lineHeight * textExtent(text.text);
  const double left = text.horizontal == Horizontal::LEFT     ? 0.0
                      : text.horizontal == Horizontal::CENTER ? extent[0] / 2.0
                                                              : extent[0];
  const double down = text.vertical == Vertical::BOTTOM   ? 0.0
                      : text.vertical == Vertical::CENTER ? extent[1] / 2.0
                                                          : extent[1];
  return {{-left, -down}, {extent[0] - left, extent[1] - down}};
}

TextDecoration labelOf(const TriadDecoration& triad, std::size_t axis, const Vector3& position) {
  TextDecoration label;
  label.text = (*triad.labels)[axis];
  label.position = position;
  label.horizontal = TextDecoration::Horizontal::CENTER;
  label.vertical = TextDecoration::Vertical::CENTER;
  label.style = triad.style;
  return label;
}

}  // namespace

void DecorationMeasure::addText(const TextDecoration& text, double lineHeight,
                                DecorationParts& result) const {
  const auto box = _measureText ? _measureText(text, lineHeight) : estimatedBox(text, lineHeight);
  if (box) {
    result.parts.push_back({text.position, *box});
  }
}

DecorationParts DecorationMeasure::operator()(const TextDecoration& text) const {
  DecorationParts result{{}, _measureText != nullptr};
  addText(text, USUAL_HEIGHT * text.lineHeight, result);
  return result;
}

DecorationParts DecorationMeasure::operator()(const TriadDecoration& triad) const {
  const double height = _view.heightAt(_view.depthOf(triad.position));
  const auto [labelHeight, axisLength] =
      drawnSize(triad, {USUAL_HEIGHT, _canvas, height > 0.0 ? _canvas[1] / height : 0.0});
  if (triad.camera) {
    return partsOfTurning(triad, axisLength, labelHeight);
  }
  DecorationParts result{{{triad.position}}, !triad.labels || _measureText != nullptr};
  for (std::size_t axis = 0; axis < triad.axes.size(); ++axis) {
    const Vector3 tip = axisLength * triad.axes[axis];
    result.parts.push_back({triad.position + tip});
    if (triad.labels && !(*triad.labels)[axis].empty()) {
      addText(labelOf(triad, axis, triad.position + TriadDecoration::LABEL_POSITION * tip), labelHeight,
              result);
    }
  }
  return result;
}

/// Of one that turns with a camera.
DecorationParts DecorationMeasure::partsOfTurning(const TriadDecoration& triad, double axisLength,
                                                  double labelHeight) const {
  double reach = 0.0;
  for (const std::string& label : triad.labels.value_or(std::array<std::string, 3>())) {
    reach = std::max(reach, labelHeight * std::ranges::max(textExtent(label)));
  }
  const double length = TriadDecoration::LABEL_POSITION * axisLength;
  const Vector3 diagonal{length, length, length};
  const TextBox extent{{-reach, -reach}, {reach, reach}};
  DecorationParts result{{}, false};
  for (const Vector3& corner : Box{triad.position - diagonal, triad.position + diagonal}.corners()) {
    result.parts.push_back({corner, extent});
  }
  return result;
}

}  // namespace vemo
