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
  constexpr unsigned ALL = ~0U;
  return std::transform_reduce(corners.begin(), corners.end(), ALL, std::bit_and(),
                               [this](const Vector3& corner) { return sidesBeyond(corner); }) != 0;
}

/// A bit for each side of the volume beyond which a point lies.
unsigned ViewVolume::sidesBeyond(const Vector3& point) const {
  const Vector3 place = point - _position;
  const double depth = dot(place, _forward);
  const double height = MARGIN * (_isParallel ? _parallelScale : SLOPE * depth);
  const double width = WIDEST * height;
  const double y = dot(place, _up);
  const double x = dot(place, _right);
  const bool isBehind = depth < 0.0;
  const bool isAbove = y > height;
  const bool isBelow = y < -height;
  const bool isRight = x > width;
  const bool isLeft = x < -width;
  const bool isBeyond[] = {isBehind, isAbove, isBelow, isRight, isLeft};
  unsigned bits = 0;
  for (unsigned i = 0; i < std::size(isBeyond); ++i) {
    bits |= (isBeyond[i] ? 1U : 0U) << i;
  }
  return bits;
}

}  // namespace vemo
