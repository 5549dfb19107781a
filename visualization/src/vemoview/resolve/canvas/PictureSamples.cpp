#include "vemoview/resolve/canvas/PictureSamples.h"

#include <vemo/resolve/UsualPicture.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vemo {

namespace {

/// In each direction: pictures are drawn so much larger, for smooth edges.
constexpr double SAMPLES_PER_PIXEL = 2.0;

/// An interval between two coordinates, in samples.
struct Interval {
  double low = std::numeric_limits<double>::max();
  double high = std::numeric_limits<double>::lowest();

  void add(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }

  /// The samples inside, which are in the middle between whole numbers, are those from
  /// begin() to before end().
  double begin() const { return std::ceil(low - 0.5); }
  double end() const { return std::ceil(high - 0.5); }
};

}  // namespace

PictureSamples::PictureSamples(const Vector<2, double>& size)
    : _counts{SAMPLES_PER_PIXEL * USUAL_WIDTH * size[0], SAMPLES_PER_PIXEL * USUAL_HEIGHT * size[1]} {}

bool PictureSamples::isInside(std::span<const Place> corners) const {
  // Wider than what rounding adds to a polygon without area.
  constexpr double LEAST_WIDTH = 1e-6;
  Interval rows;
  for (const Place& corner : corners) {
    rows.add(_counts[1] * corner[1]);
  }
  const auto end = static_cast<int>(rows.end());
  for (auto row = static_cast<int>(rows.begin()); row < end; ++row) {
    const double y = row + 0.5;
    Interval across;
    Place from = corners.back();
    for (const Place& to : corners) {
      const double before = _counts[1] * from[1] - y;
      const double after = _counts[1] * to[1] - y;
      if ((before < 0.0) != (after < 0.0)) {
        across.add(_counts[0] * (from[0] + before / (before - after) * (to[0] - from[0])));
      }
      from = to;
    }
    if (across.begin() < across.end() && across.high - across.low > LEAST_WIDTH) {
      return true;
    }
  }
  return false;
}

bool PictureSamples::isPassed(std::span<const Place> line) const {
  for (std::size_t axis = 0; axis < 2; ++axis) {
    Interval along;
    for (const Place& place : line) {
      along.add(_counts[axis] * place[axis]);
    }
    if (along.begin() < along.end()) {
      return true;
    }
  }
  return false;
}

}  // namespace vemo
