#pragma once

#include <vemo/base/Vector.h>
#include <vemo/geometry/Export.h>

#include <array>
#include <limits>

namespace vemo {

/// A box along the axes: the least and the greatest coordinates of the points
/// added to it. In an empty box the least are above the greatest.
struct Box {
  static constexpr double LIMIT = std::numeric_limits<double>::max();

  Vector3 low{LIMIT, LIMIT, LIMIT};
  Vector3 high{-LIMIT, -LIMIT, -LIMIT};

  bool isEmpty() const { return low[0] > high[0]; }

  bool contains(const Vector3& point) const {
    return low[0] <= point[0] && point[0] <= high[0] && low[1] <= point[1] && point[1] <= high[1] &&
           low[2] <= point[2] && point[2] <= high[2];
  }

  /// Coordinates that are NaN are ignored.
  void add(const Vector3& point) {
    low = Vector3::combine(low, point, [](double a, double b) { return b < a ? b : a; });
    high = Vector3::combine(high, point, [](double a, double b) { return b > a ? b : a; });
  }

  /// Nothing is added by an empty box.
  void add(const Box& box) {
    low = Vector3::combine(low, box.low, [](double a, double b) { return b < a ? b : a; });
    high = Vector3::combine(high, box.high, [](double a, double b) { return b > a ? b : a; });
  }

  VEMO_GEOMETRY_EXPORT Vector3 center() const;

  VEMO_GEOMETRY_EXPORT std::array<Vector3, 8> corners() const;

  /// Negative for an empty box.
  VEMO_GEOMETRY_EXPORT double longestSide() const;
};

}  // namespace vemo
