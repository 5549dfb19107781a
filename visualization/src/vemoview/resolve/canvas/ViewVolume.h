#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/Export.h>

#include <array>

namespace vemo {

/// How far something extends beyond its place in the picture, whatever the distance: in
/// halves of the picture's height.
struct PictureReach {
  double left = 0.0;
  double right = 0.0;
  double down = 0.0;
  double up = 0.0;
};

/// What a view shows in a picture.
class ViewVolume {
 public:
  /// @param camera one that does not frame everything
  /// @param shape the picture's width divided by its height
  ViewVolume(const CanvasCamera& camera, double shape);

  /// Sides of the volume, as bits.
  enum Sides : unsigned {
    NO_SIDE = 0,
    BEHIND = 1,
    ABOVE = 2,
    BELOW = 4,
    RIGHT = 8,
    LEFT = 16,
    ALL_SIDES = 31
  };

  /// The sides beyond which a point lies, with all that it reaches.
  unsigned sidesBeyond(const Vector3& point, const PictureReach& reach) const;

  /// Whether a box is outside for certain; false for most others that are outside.
  bool misses(const Box& box) const;

  /// From the camera along its direction to a point, and to the nearest and the farthest
  /// point of a box.
  double depthOf(const Vector3& point) const { return dot(point - _position, _forward); }
  double depthOf(const Box& box) const;
  double greatestDepthOf(const Box& box) const;

  /// The height of the picture, in units of the model, at a depth; not above 0 behind the
  /// camera.
  double heightAt(double depth) const { return 2.0 * halfHeight(depth); }

  /// The most of the picture that a face in a box covers for each unit of its area.
  /// @param nearest what is closer to the camera is not seen
  double greatestCover(const Box& box, double nearest) const;

  /// Down to which depth the picture shows less than a height: 0 or infinity in parallel
  /// projection.
  double depthOfHeight(double height) const;

  /// Across the view; what is closer to the camera is outside of it.
  ClipPlane planeAt(double depth) const { return {_position + depth * _forward, _forward}; }

  /// The planes around what is in the picture.
  /// @param nearest what is closer to the camera is outside, too
  std::array<ClipPlane, 5> sides(double nearest) const;

  /// Where a point that is in front of the camera is in the picture: as fractions of width
  /// and height from the lower left corner.
  Vector<2, double> placeOf(const Vector3& point) const;

 private:
  double halfHeight(double depth) const;
  ClipPlane side(const Vector3& outward, double halfSize) const;

  Vector3 _position;
  Vector3 _forward;
  Vector3 _up;
  Vector3 _right;
  bool _isParallel;
  double _parallelScale;
  /// Half the height of a picture in perspective at a depth of 1.
  double _slope;
  double _shape;
};

/// The camera as it is moved to show all of a box, which is not empty, as VTK moves it.
/// @param shape the picture's width divided by its height
CanvasCamera framing(const CanvasCamera& camera, const Box& box, double shape);

/// The same, but the box fills the picture, apart from a margin.
VEMO_RESOLVE_EXPORT CanvasCamera fitting(const CanvasCamera& camera, const Box& box, double shape);

}  // namespace vemo
