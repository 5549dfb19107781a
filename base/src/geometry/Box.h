#pragma once

#include <vemo/base/Vector.h>

#include <limits>

namespace vemo {

/// The least and the greatest coordinates of what is in it; the least are above
/// the greatest when that is nothing.
struct Box {
  static constexpr double LIMIT = std::numeric_limits<double>::max();

  Vector<3, double> low{LIMIT, LIMIT, LIMIT};
  Vector<3, double> high{-LIMIT, -LIMIT, -LIMIT};

  bool isEmpty() const { return low[0] > high[0]; }

  Vector<3, double> center() const {
    return {(low[0] + high[0]) / 2.0, (low[1] + high[1]) / 2.0, (low[2] + high[2]) / 2.0};
  }

  void add(const Vector<3, double>& point) {
    for (std::size_t i = 0; i < 3; ++i) {
      low[i] = point[i] < low[i] ? point[i] : low[i];
      high[i] = point[i] > high[i] ? point[i] : high[i];
    }
  }
};

}  // namespace vemo
