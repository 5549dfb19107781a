#pragma once

#include <limits>

namespace lum {

// The sizes of points and the widths of lines that can be drawn, in pixels.

/// OpenGL takes them in single precision, and refuses 0.
inline constexpr double LEAST_PIXELS = std::numeric_limits<float>::min();

/// A driver need not accept any that are wider than a screen.
inline constexpr double GREATEST_PIXELS = 4096.0;

}  // namespace lum
