#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/UsualPicture.h>

#include <optional>

namespace vemo {

/// The least depth that perspective shows, as a part of the greatest: less leaves too little
/// precision for what is far away.
inline constexpr double LEAST_DEPTH = 1e-4;

/// Where a canvas is seen from. All values are finite.
struct CanvasCamera {
  /// The view-up is a unit vector that is not parallel to the direction of view.
  struct Viewpoint {
    Vector3 position;
    Vector3 focalPoint;
    Vector3 viewUp;
  };

  /// Without one, everything visible is framed, seen against the z axis.
  std::optional<Viewpoint> viewpoint;
  bool isParallel = false;
  /// Half the height of what a parallel camera sees, above 0. Without it a
  /// parallel camera frames everything visible from the viewpoint's direction.
  std::optional<double> parallelScale;
  /// In perspective, from top to bottom, in degrees.
  double viewAngle = USUAL_VIEW_ANGLE;

  bool framesAll() const { return !viewpoint || (isParallel && !parallelScale); }
};

}  // namespace vemo
