#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/Export.h>
#include <vemo/resolve/UsualPicture.h>

#include <limits>
#include <optional>

namespace vemo {

/// The view of a canvas.
struct PickView {
  /// The canvas's part of the window, in pixels.
  Vector<2, double> lowerLeft;
  Vector<2, double> size;
  Vector3 position;
  /// The unit vector of the direction of view.
  Vector3 forward;
  Vector3 viewUp;
  bool isParallel = false;
  /// Half the height of what a parallel camera sees.
  double parallelScale = 1.0;
  /// Of a perspective camera, from top to bottom, in degrees.
  double viewAngle = USUAL_VIEW_ANGLE;
};

/// The ray behind a pixel, from the viewer's eye into the model, and the size
/// of a pixel along it.
struct VEMO_RESOLVE_EXPORT PickRay {
  Vector3 origin;
  /// A unit vector.
  Vector3 direction;
  /// The size of a pixel at the origin, and how much it grows with each unit of
  /// length along the ray.
  double pixelAtOrigin = 0.0;
  double pixelGrowth = 0.0;

  /// Through a pixel of the window, counted from its lower left corner; nothing
  /// for one outside the view.
  static std::optional<PickRay> through(const PickView& view, const Vector<2, double>& pixel);

  Vector3 at(double distance) const {
    return {origin[0] + distance * direction[0], origin[1] + distance * direction[1],
            origin[2] + distance * direction[2]};
  }
  double pixelSize(double distance) const { return pixelAtOrigin + distance * pixelGrowth; }
};

/// A part of a pick ray, by its distances from the origin.
struct RayInterval {
  double first = 0.0;
  double last = std::numeric_limits<double>::infinity();
};

}  // namespace vemo
