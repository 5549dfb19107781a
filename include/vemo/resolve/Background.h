#pragma once

#include <vemo/base/Vector.h>

#include <array>
#include <variant>

namespace vemo {

/// Colours are red, green, blue in 0..1.
struct SolidBackground {
  Vector3 color;
};

/// Colours of the corners, blended between them: lower left, lower right, upper
/// right, upper left.
struct LinearBackground {
  std::array<Vector3, 4> corners;
};

/// From the centre outwards to the corners.
struct RadialBackground {
  Vector3 center;
  Vector3 corners;
};

/// What fills the whole window behind everything else.
using Background = std::variant<SolidBackground, LinearBackground, RadialBackground>;

}  // namespace vemo
