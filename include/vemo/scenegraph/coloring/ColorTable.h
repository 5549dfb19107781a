#pragma once

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Export.h>

#include <compare>
#include <cstdint>
#include <string>
#include <vector>

namespace lum {
class ColorLookupTable;
}

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

/// A table of the scene graph as it is used for drawing.
struct UsableColorTable {
  ColorTable table;
  /// What it takes to use it, as "has no finite range and gets ...", for findings;
  /// empty if it is used as it is, or a finding of reading says why it is not.
  std::string changes;
};

/// The colours are used as they are: the table's ramp mode says how they were made,
/// and is not applied again. A table that cannot be used as it is becomes one that
/// can:
///
/// - Without colours it gets 256 from blue over green to red.
/// - A range that is not finite becomes that from 0 to 1.
/// - A range whose first end is the greater is reversed, and its colours too.
/// - A logarithmic range from 0 or below becomes the four powers of ten below its
///   high end; one that ends there is linear.
VEMO_SCENEGRAPH_EXPORT UsableColorTable makeUsable(const lum::ColorLookupTable& table);

}  // namespace vemo
