#include "vemoview/resolve/canvas/PictureSamples.h"

#include <vemo/resolve/UsualPicture.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

/// In each direction: pictures are drawn so much larger, for smooth edges.
constexpr double SAMPLES_PER_PIXEL = 2.0;

}  // namespace

PictureSamples::PictureSamples(const Vector<2, double>& size)
    : _counts{SAMPLES_PER_PIXEL * USUAL_WIDTH * size[0], SAMPLES_PER_PIXEL * USUAL_HEIGHT * size[1]} {}

double PictureSamples::areaOf(std::span<const Place> corners) {
  double doubled = 0.0;
  Place from = corners.back() - corners.front();
  for (const Place& corner : corners) {
    const Place to = corner - corners.front();
    doubled += from[0] * to[1] - from[1] * to[0];
    from = to;
  }
  return std::abs(doubled) / 2.0;
}

bool PictureSamples::isInside(std::span<const Place> corners, long& steps) const {
  // Wider than what rounding adds to a polygon without area.
  constexpr double LEAST_WIDTH = 1e-6;
  const Interval columns = extent(corners, 0);
  const Interval rows = extent(corners, 1);
  const double area = _counts[0] * _counts[1] * areaOf(corners);
  if (columns.isEmpty() || rows.isEmpty() || area < LEAST_WIDTH * (rows.high - rows.low) / 2.0) {
    return false;
  }
  const auto [begin, end] = rowsOf(corners);
  for (int row = begin; row < end; ++row, ++steps) {
    const Interval across = acrossRow(corners, row);
    if (!across.isEmpty() && across.high - across.low > LEAST_WIDTH) {
      return true;
    }
  }
  return false;
}

std::pair<int, int> PictureSamples::rowsOf(std::span<const Place> corners) const {
  const Interval rows = extent(corners, 1);
  // Rounding may have moved corners far outside.
  return {static_cast<int>(std::clamp(rows.begin(), 0.0, _counts[1])),
          static_cast<int>(std::clamp(rows.end(), 0.0, _counts[1]))};
}

PictureSamples::Interval PictureSamples::acrossRow(std::span<const Place> corners, int row) const {
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
  return across;
}

bool PictureSamples::isPassed(std::span<const Place> line) const {
  return !extent(line, 0).isEmpty() || !extent(line, 1).isEmpty();
}

PictureSamples::Interval PictureSamples::extent(std::span<const Place> places, std::size_t axis) const {
  Interval result;
  for (const Place& place : places) {
    result.add(_counts[axis] * place[axis]);
  }
  return result;
}

}  // namespace vemo
