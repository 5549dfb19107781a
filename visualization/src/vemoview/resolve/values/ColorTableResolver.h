#pragma once

#include <vemo/scenegraph/coloring/ColorTable.h>

#include <memory>
#include <set>
#include <string>
#include <utility>

namespace lum {
class ColorLookupTable;
}

namespace vemo {

/// Resolves the colour tables of a scene, by what they hold alone: surfaces, points
/// and legends of one colormap have the same range, scale and colours, whatever
/// their data. A finding says what makes a table usable.
class ColorTables {
 public:
  /// Equal tables are one object. Each is reported once for each range that it was made from.
  std::shared_ptr<const ColorTable> resolve(const lum::ColorLookupTable& table);

 private:
  using Table = std::shared_ptr<const ColorTable>;
  struct Less {
    bool operator()(const Table& a, const Table& b) const { return *a < *b; }
  };

  UsableColorTables _usable;
  std::set<Table, Less> _tables;
  /// Tables, each with a text about what it was made from.
  std::set<std::pair<Table, std::string>> _reported;
};

}  // namespace vemo
