#pragma once

#include <vemo/base/Vector.h>

namespace lum {

// What can be drawn with a camera: VTK keeps it at least 1e-20 from its focal point,
// and OpenGL computes with single precision.

/// @param view from the camera to its focal point
inline bool isUsableView(const vemo::Vector3& view) {
  constexpr double NEAREST = 1e-20;
  return vemo::unitVector(view).has_value() && vemo::length(view) > NEAREST;
}

/// Whether it has a direction, which is not that of a usable view.
inline bool isUsableViewUp(const vemo::Vector3& viewUp, const vemo::Vector3& view) {
  constexpr double MIN_SINE = 1e-6;
  const auto up = vemo::unitVector(viewUp);
  return up.has_value() && vemo::length(vemo::cross(*up, vemo::normalized(view))) > MIN_SINE;
}

/// Also false for NaN.
inline bool isUsableParallelScale(double scale) {
  constexpr double SMALLEST = 1e-37;
  constexpr double LARGEST = 1e37;
  return scale >= SMALLEST && scale <= LARGEST;
}

}  // namespace lum
