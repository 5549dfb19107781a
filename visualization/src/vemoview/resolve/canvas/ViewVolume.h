#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/CanvasCamera.h>

namespace vemo {

/// What a stated view shows, in a picture of any usual shape.
class ViewVolume {
 public:
  /// Of a camera that does not frame everything.
  explicit ViewVolume(const CanvasCamera& camera);

  /// Whether a box is outside for certain; false for most others that are outside.
  bool misses(const Box& box) const;

 private:
  unsigned sidesBeyond(const Vector3& point) const;

  Vector3 _position;
  Vector3 _forward;
  Vector3 _up;
  Vector3 _right;
  bool _isParallel;
  double _parallelScale;
};

}  // namespace vemo
