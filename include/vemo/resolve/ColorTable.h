#pragma once

#include <vemo/base/Vector.h>

#include <compare>
#include <cstdint>
#include <vector>

namespace vemo {

/// From numbers to colours. The range is divided into equal intervals, one for
/// each colour; numbers outside it have the colour of the nearer end. Of values
/// with several components the first counts. A range of one value gives that the
/// colour in the middle.
struct ColorTable {
  /// Red, green, blue, alpha of each colour, that of the low end first; at least
  /// one colour.
  std::vector<std::uint8_t> rgba;
  /// Finite, the lower end first; above 0 for a logarithmic table.
  Vector<2, double> range{0.0, 1.0};
  bool isLog10 = false;

  auto operator<=>(const ColorTable&) const = default;
};

}  // namespace vemo
