#include "vemoview/import/geometry/PointBounds.h"

#include "geometry/Bounds.h"

namespace vemo {

const PointBounds::Bounds& PointBounds::of(vtkDataArray& points) {
  const auto [place, isNew] = _known.try_emplace(&points);
  if (isNew) {
    place->second.box = finiteBounds(points, &place->second.nonFinite);
  }
  return place->second;
}

}  // namespace vemo
