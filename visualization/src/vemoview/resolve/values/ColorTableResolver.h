#pragma once

#include <vemo/resolve/ColorTable.h>

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
/// their data.
///
/// The colours are used as they are: the table's ramp mode says how they were made,
/// and is not applied again. A table that cannot be used as it is becomes one that
/// can, and a finding says how:
///
/// - Without colours it gets 256 from blue over green to red.
/// - A range that is not finite becomes that from 0 to 1.
/// - A range whose first end is the greater is reversed, and its colours too.
/// - A logarithmic range from 0 or below becomes the four powers of ten below its
///   high end; one that ends there is linear.
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
