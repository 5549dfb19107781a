#include "vemoview/render/pick/Picker.h"

#include "vemoview/render/pick/CellSearch.h"
#include "vemoview/render/resolve/Piece.h"

#include <vtkPlane.h>
#include <vtkPlaneCollection.h>

#include <algorithm>

namespace vemo {

namespace {

/// What a plane leaves of a part of a sight line: that on the side that its
/// normal points to.
Span cut(const Span& span, const SightLine& line, vtkPlane& plane) {
  const Vector3 normal = toVector(plane.GetNormal());
  const double height = dot(normal, line.origin - toVector(plane.GetOrigin()));
  const double slope = dot(normal, line.direction);
  if (slope > 0.0) {
    return {std::max(span.first, -height / slope), span.last};
  }
  if (slope < 0.0) {
    return {span.first, std::min(span.last, -height / slope)};
  }
  return height >= 0.0 ? span : Span{0.0, -1.0};
}

}  // namespace

Picker::Picker(const SightLine& line, vtkPlaneCollection& planes) : _line(line) {
  for (int i = 0; i < planes.GetNumberOfItems(); ++i) {
    _unclipped = cut(_unclipped, line, *planes.GetItem(i));
  }
}

void Picker::look(const Piece& piece) {
  forEachPlacement(piece.placements, [&](const double* placement) {
    CellSearch search(_line, piece.appearance.isClipped ? _unclipped : _whole, piece, placement,
                      _nearestRank);
    if (const auto hit = search.run()) {
      _nearestRank = hit->rank;
      _nearest = Pick{piece.drawable,
                      piece.node,
                      hit->cell,
                      hit->point,
                      _line.at(hit->distance),
                      search.placeOf(hit->point)};
    }
  });
}

}  // namespace vemo
