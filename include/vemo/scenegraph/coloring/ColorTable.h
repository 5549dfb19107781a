#pragma once

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Export.h>
#include <vemo/scenegraph/SharedNumbers.h>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace lum {
class ColorLookupTable;
}

namespace vemo {

/// Colours of four bytes each: red, green, blue, alpha. Very many tables may have the same ones:
/// copies share them.
class SharedColors {
 public:
  SharedColors() = default;
  // Implicit: what takes shared colours takes any.
  SharedColors(std::vector<std::uint8_t> rgba)
      : _rgba(std::make_shared<const std::vector<std::uint8_t>>(std::move(rgba))) {}

  const std::vector<std::uint8_t>& get() const {
    static const auto& none = *new std::vector<std::uint8_t>;
    return _rgba != nullptr ? *_rgba : none;
  }
  operator const std::vector<std::uint8_t>&() const { return get(); }

  friend std::strong_ordering operator<=>(const SharedColors& left, const SharedColors& right) {
    return left._rgba == right._rgba ? std::strong_ordering::equal : left.get() <=> right.get();
  }
  friend bool operator==(const SharedColors& left, const SharedColors& right) {
    return left._rgba == right._rgba || left.get() == right.get();
  }

 private:
  /// Null for no colours.
  std::shared_ptr<const std::vector<std::uint8_t>> _rgba;
};

/// From numbers to colours. The range is divided into equal intervals, one for
/// each colour; numbers outside it have the colour of the nearer end. Of values
/// with several components the first counts. A range of one value gives that the
/// colour in the middle, or the higher of two.
struct ColorTable {
  /// That of the low end first; at least one colour.
  SharedColors rgba;
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

/// Makes many tables usable, as makeUsable() does. Those that share their list of colours in the
/// scene graph share it here.
class VEMO_SCENEGRAPH_EXPORT UsableColorTables {
 public:
  UsableColorTable make(const lum::ColorLookupTable& table);

 private:
  SharedColors colorsOf(const lum::ColorLookupTable& table);
  SharedColors reversed(const SharedColors& colors);

  /// The colours of a list, as many as a table declares. The list is kept, so that no other takes its
  /// address.
  struct Converted {
    lum::SharedNumbers list;
    SharedColors colors;
  };
  std::map<std::pair<const std::vector<double>*, std::ptrdiff_t>, Converted> _converted;

  struct Reversed {
    SharedColors original;
    SharedColors colors;
  };
  std::map<const std::vector<std::uint8_t>*, Reversed> _reversed;
};

}  // namespace vemo
