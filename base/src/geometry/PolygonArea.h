#pragma once

#include <vemo/base/Vector.h>

#include <cstddef>
#include <span>

namespace vemo {

/// Twice the area of a polygon, which need not be convex, along the normal from which it runs
/// counter-clockwise.
template <class Points, class Index>
Vector3 areaProduct(const Points& points, std::span<const Index> polygon) {
  const Vector3 origin = points[polygon[0]];
  Vector3 sum;
  for (std::size_t i = 2; i < polygon.size(); ++i) {
    sum += cross(points[polygon[i - 1]] - origin, points[polygon[i]] - origin);
  }
  return sum;
}

}  // namespace vemo
