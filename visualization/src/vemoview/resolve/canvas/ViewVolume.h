#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/CanvasCamera.h>

namespace vemo {

/// How far something extends beyond its place in the picture, whatever the distance: in
/// halves of the picture's height.
struct PictureReach {
  double across = 0.0;
  double upwards = 0.0;
};

/// What a view shows in a picture.
class ViewVolume {
 public:
  /// @param camera one that does not frame everything
  /// @param shape the picture's width divided by its height
  ViewVolume(const CanvasCamera& camera, double shape);

  /// Whether a box is outside for certain; false for most others that are outside.
  bool misses(const Box& box, const PictureReach& reach) const;

  /// From the camera along its direction to the nearest point of a box.
  double depthOf(const Box& box) const;

  /// The height of the picture, in units of the model, where a box is nearest to the camera;
  /// not above 0 if that is behind it.
  double heightAt(const Box& box) const;

 private:
  unsigned sidesBeyond(const Vector3& point, const PictureReach& reach) const;
  double halfHeight(double depth) const;

  Vector3 _position;
  Vector3 _forward;
  Vector3 _up;
  Vector3 _right;
  bool _isParallel;
  double _parallelScale;
  double _shape;
};

/// The camera as it is moved to show all of a box, which is not empty.
CanvasCamera framing(const CanvasCamera& camera, const Box& box);

}  // namespace vemo
