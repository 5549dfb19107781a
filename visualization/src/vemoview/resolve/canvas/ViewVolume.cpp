#include "vemoview/resolve/canvas/ViewVolume.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <numeric>

namespace vemo {

namespace {

/// More than a box needs, for a margin around it.
constexpr double MARGIN = 1.05;

/// Half the height of a picture in perspective at a depth of 1.
double slopeOf(const CanvasCamera& camera) {
  return std::tan(camera.viewAngle * std::numbers::pi / 360.0);
}

}  // namespace

ViewVolume::ViewVolume(const CanvasCamera& camera, double shape)
    : _position(camera.viewpoint->position),
      _forward(normalized(camera.viewpoint->focalPoint - _position)),
      _right(normalized(cross(_forward, camera.viewpoint->viewUp))),
      _isParallel(camera.isParallel),
      _parallelScale(camera.parallelScale.value_or(0.0)),
      _slope(slopeOf(camera)),
      _shape(shape) {
  _up = cross(_right, _forward);
}

double ViewVolume::halfHeight(double depth) const {
  return _isParallel ? _parallelScale : _slope * depth;
}

bool ViewVolume::misses(const Box& box) const {
  const auto corners = box.corners();
  return std::transform_reduce(corners.begin(), corners.end(), unsigned{ALL_SIDES}, std::bit_and(),
                               [&](const Vector3& corner) { return sidesBeyond(corner, {}); }) != 0;
}

unsigned ViewVolume::sidesBeyond(const Vector3& point, const PictureReach& reach) const {
  const Vector3 place = point - _position;
  const double depth = dot(place, _forward);
  const double half = halfHeight(depth);
  const double y = dot(place, _up);
  const double x = dot(place, _right);
  // In perspective, nothing can be seen beside the camera.
  const bool isBehind = _isParallel ? depth < 0.0 : depth <= 0.0;
  return (isBehind ? BEHIND : NO_SIDE) | (y > (1.0 + reach.down) * half ? ABOVE : NO_SIDE) |
         (y < -(1.0 + reach.up) * half ? BELOW : NO_SIDE) |
         (x > (_shape + reach.left) * half ? RIGHT : NO_SIDE) |
         (x < -(_shape + reach.right) * half ? LEFT : NO_SIDE);
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

double ViewVolume::greatestCover(const Box& box, double nearest) const {
  const double half = std::max(halfHeight(std::max(depthOf(box), nearest)), 0.0);
  // Away from the middle, a face that is turned towards the viewer covers more of the picture than one
  // parallel to it.
  const double slant = _isParallel ? 1.0 : std::hypot(1.0, _slope, _slope * _shape);
  return slant / (4.0 * half * half * _shape);
}

/// @param outward a unit vector of the picture
/// @param halfSize in halves of the picture's height
ClipPlane ViewVolume::side(const Vector3& outward, double halfSize) const {
  if (_isParallel) {
    return {_position + halfSize * _parallelScale * outward, -1.0 * outward};
  }
  return {_position, normalized(halfSize * _slope * _forward - outward)};
}

double ViewVolume::depthOfHeight(double height) const {
  if (_isParallel) {
    return height > heightAt(0.0) ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return height / heightAt(1.0);
}

std::array<ClipPlane, 5> ViewVolume::sides(double nearest) const {
  return {planeAt(nearest), side(_right, _shape), side(-1.0 * _right, _shape), side(_up, 1.0),
          side(-1.0 * _up, 1.0)};
}

Vector<2, double> ViewVolume::placeOf(const Vector3& point) const {
  const Vector3 place = point - _position;
  const double half = halfHeight(dot(place, _forward));
  return {(dot(place, _right) / (_shape * half) + 1.0) / 2.0, (dot(place, _up) / half + 1.0) / 2.0};
}

CanvasCamera framing(const CanvasCamera& camera, const Box& box, double shape) {
  // As VTK does for a point.
  constexpr double RADIUS_OF_POINT = 0.5;
  const double diagonal = length(box.high - box.low);
  const double radius = diagonal > 0.0 ? diagonal / 2.0 : RADIUS_OF_POINT;
  const double narrowness = std::min(shape, 1.0);
  CanvasCamera result = camera;
  Vector3 backward{0.0, 0.0, 1.0};
  Vector3 viewUp{0.0, 1.0, 0.0};
  if (camera.viewpoint) {
    backward = normalized(camera.viewpoint->position - camera.viewpoint->focalPoint);
    viewUp = camera.viewpoint->viewUp;
  }
  const Vector3 center = box.center();
  const double angle = std::atan(slopeOf(camera) * narrowness);
  result.viewpoint = {center + radius / std::sin(angle) * backward, center, viewUp};
  result.parallelScale = radius / narrowness;
  return result;
}

CanvasCamera fitting(const CanvasCamera& camera, const Box& box, double shape) {
  CanvasCamera result = framing(camera, box, shape);
  auto& [position, focalPoint, viewUp] = *result.viewpoint;
  const Vector3 forward = normalized(focalPoint - position);
  const Vector3 right = normalized(cross(forward, viewUp));
  const Vector3 up = cross(right, forward);
  // The camera stays outside of the box, however wide its angle is.
  const double leastDepth = (MARGIN - 1.0) * length(box.high - box.low);
  double scale = 0.0;
  double distance = 0.0;
  for (const Vector3& corner : box.corners()) {
    const Vector3 place = corner - focalPoint;
    const double half = MARGIN * std::max(std::abs(dot(place, up)), std::abs(dot(place, right)) / shape);
    scale = std::max(scale, half);
    distance = std::max(distance, std::max(half / slopeOf(camera), leastDepth) - dot(place, forward));
  }
  if (scale > 0.0) {
    result.parallelScale = scale;
    if (!camera.isParallel) {
      position = focalPoint - distance * forward;
    }
  }
  return result;
}

}  // namespace vemo
