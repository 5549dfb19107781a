#include "vemoview/resolve/values/ColorTableResolver.h"

#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>

#include <fmt/format.h>
#include <utility>

namespace vemo {

std::shared_ptr<const ColorTable> ColorTables::resolve(const lum::ColorLookupTable& table) {
  auto [usable, changes] = makeUsable(table);
  const auto [resolved, isNew] =
      _tables.insert({std::make_shared<const ColorTable>(std::move(usable)), changes});
  if (isNew && !changes.empty()) {
    const auto& range = table.getScalarRange();
    reportFinding(FindingCode::COLORMAP_ADJUSTED,
                  fmt::format("The colormap from {} to {} {}", range[0], range[1], changes));
  }
  return resolved->table;
}

}  // namespace vemo
