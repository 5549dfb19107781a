#pragma once

#include <vemo/scenegraph/coloring/ColorTable.h>

#include <memory>
#include <set>
#include <string>
#include <tuple>

namespace lum {
class ColorLookupTable;
}

namespace vemo {

/// Resolves the colour tables of a scene, by what they hold alone: surfaces, points
/// and legends of one colormap have the same range, scale and colours, whatever
/// their data. A finding says what makes a table usable.
class ColorTables {
 public:
  /// Equal tables are one object, and reported once.
  std::shared_ptr<const ColorTable> resolve(const lum::ColorLookupTable& table);

 private:
  struct Resolved {
    std::shared_ptr<const ColorTable> table;
    std::string changes;

    bool operator<(const Resolved& other) const {
      return std::tie(*table, changes) < std::tie(*other.table, other.changes);
    }
  };

  std::set<Resolved> _tables;
};

}  // namespace vemo
