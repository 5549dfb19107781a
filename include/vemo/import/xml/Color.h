#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/Export.h>

#include <compare>
#include <cstdint>
#include <string>

namespace vemo {

/// A colour of the scene description: four channels of 8 bits.
struct Color {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  std::uint8_t a = 0;

  /// Reads "RRGGBBAA", two hexadecimal digits a channel; what follows the
  /// eighth character is ignored. A shorter text throws InternalError, a pair
  /// that is not a number NumberFormatException with that pair.
  VEMO_IMPORT_EXPORT static Color parse(const std::string& text);

  /// Red, green and blue in 0..1, as the scene graph takes them.
  Vector<3, double> getRGB() const { return {r / 255.0, g / 255.0, b / 255.0}; }
  /// In 0..1.
  double getOpacity() const { return a / 255.0; }

  friend auto operator<=>(const Color&, const Color&) = default;
};

}  // namespace vemo
