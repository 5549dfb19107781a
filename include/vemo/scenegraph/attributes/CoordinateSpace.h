#pragma once

#include <cstdint>

namespace lum {

/// What a position of text or of an image is given in.
enum class CoordinateSpace : std::int32_t {
  /// Fractions of the canvas's width and height from its lower left corner; z
  /// is not used.
  WINDOW = 0,
  /// Model coordinates.
  MODEL = 1,
};

}  // namespace lum
