#pragma once

#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <cstdint>
#include <map>
#include <vector>

namespace lum {

/// Gives colour tables another range, which must be usable. Their colours stay in the order in which they are
/// drawn: a table whose range starts at its greater value gets a list of its drawn colours instead. Such
/// tables share that list if they had one in common and draw as many of its colours.
class RangeChange {
 public:
  explicit RangeChange(const Vector2& range) : _range(range) {}

  void applyTo(ColorLookupTable& table);

 private:
  Vector2 _range;
  /// Keeps the drawn colours, so that their addresses, the keys of the map, stay theirs.
  vemo::UsableColorTables _usable;
  /// The lists for drawn colours.
  std::map<const std::vector<std::uint8_t>*, SharedNumbers> _numbers;
};

}  // namespace lum
