#pragma once

#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <cstdint>
#include <map>
#include <vector>

namespace lum {

/// The colours in 0..1, four numbers of each.
std::vector<double> numbersOf(const vemo::SharedColors& colors);

/// Gives colour tables another range, which must be usable. Their colours stay in the order in which they are
/// drawn: that of a table whose range starts at its greater value is reversed. Tables that share a list of
/// colours still do so.
class RangeChange {
 public:
  explicit RangeChange(const Vector2& range) : _range(range) {}

  void applyTo(ColorLookupTable& table);

 private:
  Vector2 _range;
  /// Has all colours of the map.
  vemo::UsableColorTables _usable;
  std::map<const std::vector<std::uint8_t>*, SharedNumbers> _numbers;
};

}  // namespace lum
