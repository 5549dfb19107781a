#include "geometry/FiniteBounds.h"

#include "geometry/PointCoordinates.h"

#include <vtkPoints.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>
#include <span>

namespace vemo::geometry {
namespace {

template <class Real>
Bounds boundsOf(std::span<const Real> coordinates) {
  constexpr double FAR = std::numeric_limits<double>::infinity();
  Bounds bounds{{FAR, FAR, FAR}, {-FAR, -FAR, -FAR}};
  for (std::size_t i = 0; i < coordinates.size(); i += 3) {
    const auto point = coordinates.subspan(i, 3);
    if (!std::isfinite(point[0]) || !std::isfinite(point[1]) || !std::isfinite(point[2])) {
      continue;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
      bounds.minimum[axis] = std::min(bounds.minimum[axis], double{point[axis]});
      bounds.maximum[axis] = std::max(bounds.maximum[axis], double{point[axis]});
    }
  }
  return bounds;
}

}  // namespace

Vector<3, double> Bounds::center() const {
  Vector<3, double> result;
  std::transform(minimum.begin(), minimum.end(), maximum.begin(), result.begin(),
                 [](double low, double high) { return std::midpoint(low, high); });
  return result;
}

std::optional<Bounds> finiteBounds(vtkPoints& points) {
  Bounds bounds;
  withCoordinates(points, [&](auto coordinates) { bounds = boundsOf(coordinates); });
  if (bounds.minimum[0] > bounds.maximum[0]) {
    return std::nullopt;
  }
  return bounds;
}

}  // namespace vemo::geometry
