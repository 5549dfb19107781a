#include "vemoview/resolve/canvas/ViewVolume.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <numeric>

namespace vemo {

namespace {

/// Points and lines reach beyond their coordinates.
constexpr double MARGIN = 1.2;

/// Width to height of the widest picture.
constexpr double WIDEST = 16.0;

/// Bits, one for each side of the volume.
enum : unsigned { NONE = 0, BEHIND = 1, ABOVE = 2, BELOW = 4, RIGHT = 8, LEFT = 16, ALL_SIDES = 31 };

/// Half of the angle of view that VTK has in perspective.
const double SLOPE = std::tan(std::numbers::pi / 12.0);

}  // namespace

ViewVolume::ViewVolume(const CanvasCamera& camera)
    : _position(camera.viewpoint->position),
      _forward(normalized(camera.viewpoint->focalPoint - _position)),
      _right(normalized(cross(_forward, camera.viewpoint->viewUp))),
      _isParallel(camera.isParallel),
      _parallelScale(camera.parallelScale.value_or(0.0)) {
  _up = cross(_right, _forward);
}

bool ViewVolume::misses(const Box& box) const {
  const auto corners = box.corners();
  return std::transform_reduce(corners.begin(), corners.end(), unsigned{ALL_SIDES}, std::bit_and(),
                               [this](const Vector3& corner) { return sidesBeyond(corner); }) != 0;
}

/// The sides of the volume beyond which a point lies.
unsigned ViewVolume::sidesBeyond(const Vector3& point) const {
  const Vector3 place = point - _position;
  const double depth = dot(place, _forward);
  const double height = MARGIN * (_isParallel ? _parallelScale : SLOPE * depth);
  const double width = WIDEST * height;
  const double y = dot(place, _up);
  const double x = dot(place, _right);
  return (depth < 0.0 ? BEHIND : NONE) | (y > height ? ABOVE : NONE) | (y < -height ? BELOW : NONE) |
         (x > width ? RIGHT : NONE) | (x < -width ? LEFT : NONE);
}

}  // namespace vemo
