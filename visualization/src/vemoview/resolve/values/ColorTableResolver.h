#pragma once

#include <vemo/scenegraph/coloring/ColorTable.h>

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

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

  /// Whether a colour of a table that was resolved here is not opaque.
  bool isTranslucent(const ColorTable& table);

 private:
  using Table = std::shared_ptr<const ColorTable>;
  struct Less {
    bool operator()(const Table& a, const Table& b) const { return *a < *b; }
  };

  UsableColorTables _usable;
  std::set<Table, Less> _tables;
  /// By the lists of colours, which very many tables may share.
  std::map<const std::vector<std::uint8_t>*, bool> _areTranslucent;
  /// Tables, each with a text about what it was made from.
  std::set<std::pair<Table, std::string>> _reported;
};

}  // namespace vemo
