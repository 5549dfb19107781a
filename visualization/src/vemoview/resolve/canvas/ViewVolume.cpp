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
  const double half = halfHeight(depth);
  const double y = dot(place, _up);
  const double x = dot(place, _right);
  // In perspective, nothing can be seen beside the camera.
  const bool isBehind = _isParallel ? depth < 0.0 : depth <= 0.0;
  return (isBehind ? BEHIND : NONE) | (y > (1.0 + reach.down) * half ? ABOVE : NONE) |
         (y < -(1.0 + reach.up) * half ? BELOW : NONE) | (x > (_shape + reach.left) * half ? RIGHT : NONE) |
         (x < -(_shape + reach.right) * half ? LEFT : NONE);
}

double ViewVolume::depthOf(const Box& box) const {
  double depth = std::numeric_limits<double>::max();
  for (const Vector3& corner : box.corners()) {
    depth = std::min(depth, depthOf(corner));
  }
  return depth;
}

double ViewVolume::greatestDepthOf(const Box& box) const {
  double depth = std::numeric_limits<double>::lowest();
  for (const Vector3& corner : box.corners()) {
    depth = std::max(depth, depthOf(corner));
  }
  return depth;
}

/// @param outward a unit vector of the picture
/// @param halfSize in halves of the picture's height
ClipPlane ViewVolume::side(const Vector3& outward, double halfSize) const {
  if (_isParallel) {
    return {_position + halfSize * _parallelScale * outward, -1.0 * outward};
  }
  return {_position, normalized(halfSize * std::tan(HALF_ANGLE) * _forward - outward)};
}

std::array<ClipPlane, 5> ViewVolume::sides(double nearest, const PictureReach& reach) const {
  return {ClipPlane{_position + nearest * _forward, _forward}, side(_right, _shape + reach.left),
          side(-1.0 * _right, _shape + reach.right), side(_up, 1.0 + reach.down),
          side(-1.0 * _up, 1.0 + reach.up)};
}

Vector<2, double> ViewVolume::placeOf(const Vector3& point) const {
  const Vector3 place = point - _position;
  const double half = halfHeight(dot(place, _forward));
  return {(dot(place, _right) / (_shape * half) + 1.0) / 2.0, (dot(place, _up) / half + 1.0) / 2.0};
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
