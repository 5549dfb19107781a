#include "vemoview/resolve/canvas/ViewVolume.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <numeric>

namespace vemo {

namespace {

/// Bits, one for each side of the volume.
enum : unsigned { NONE = 0, BEHIND = 1, ABOVE = 2, BELOW = 4, RIGHT = 8, LEFT = 16, ALL_SIDES = 31 };

/// Half of the angle of view that VTK has in perspective.
constexpr double HALF_ANGLE = std::numbers::pi / 12.0;

}  // namespace

ViewVolume::ViewVolume(const CanvasCamera& camera, double shape)
    : _position(camera.viewpoint->position),
      _forward(normalized(camera.viewpoint->focalPoint - _position)),
      _right(normalized(cross(_forward, camera.viewpoint->viewUp))),
      _isParallel(camera.isParallel),
      _parallelScale(camera.parallelScale.value_or(0.0)),
      _shape(shape) {
  _up = cross(_right, _forward);
}

double ViewVolume::halfHeight(double depth) const {
  return _isParallel ? _parallelScale : std::tan(HALF_ANGLE) * depth;
}

bool ViewVolume::misses(const Box& box, const PictureReach& reach) const {
  const auto corners = box.corners();
  return std::transform_reduce(corners.begin(), corners.end(), unsigned{ALL_SIDES}, std::bit_and(),
                               [&](const Vector3& corner) { return sidesBeyond(corner, reach); }) != 0;
}

/// The sides of the volume beyond which a point lies.
unsigned ViewVolume::sidesBeyond(const Vector3& point, const PictureReach& reach) const {
  const Vector3 place = point - _position;
  const double depth = dot(place, _forward);
  const double height = (1.0 + reach.upwards) * halfHeight(depth);
  const double width = (_shape + reach.across) * halfHeight(depth);
  const double y = dot(place, _up);
  const double x = dot(place, _right);
  return (depth < 0.0 ? BEHIND : NONE) | (y > height ? ABOVE : NONE) | (y < -height ? BELOW : NONE) |
         (x > width ? RIGHT : NONE) | (x < -width ? LEFT : NONE);
}

double ViewVolume::depthOf(const Box& box) const {
  double depth = std::numeric_limits<double>::max();
  for (const Vector3& corner : box.corners()) {
    depth = std::min(depth, dot(corner - _position, _forward));
  }
  return depth;
}

double ViewVolume::heightAt(const Box& box) const {
  return 2.0 * halfHeight(depthOf(box));
}

CanvasCamera framing(const CanvasCamera& camera, const Box& box) {
  const double radius = length(box.high - box.low) / 2.0;
  CanvasCamera result = camera;
  Vector3 backward{0.0, 0.0, 1.0};
  Vector3 viewUp{0.0, 1.0, 0.0};
  if (camera.viewpoint) {
    backward = normalized(camera.viewpoint->position - camera.viewpoint->focalPoint);
    viewUp = camera.viewpoint->viewUp;
  }
  const Vector3 center = box.center();
  result.viewpoint = {center + radius / std::sin(HALF_ANGLE) * backward, center, viewUp};
  result.parallelScale = radius;
  return result;
}

}  // namespace vemo
