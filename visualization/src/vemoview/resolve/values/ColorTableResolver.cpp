#include "vemoview/resolve/values/ColorTableResolver.h"

#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>

#include <fmt/format.h>
#include <utility>

namespace vemo {

std::shared_ptr<const ColorTable> ColorTables::resolve(const lum::ColorLookupTable& table) {
  auto [usable, changes] = _usable.make(table);
  const Table& resolved = *_tables.insert(std::make_shared<const ColorTable>(std::move(usable))).first;
  if (!changes.empty()) {
    const auto& range = table.getScalarRange();
    const std::string text = fmt::format("The colormap from {} to {} {}", range[0], range[1], changes);
    if (_reported.emplace(resolved, text).second) {
      reportFinding(FindingCode::COLORMAP_ADJUSTED, text);
    }
  }
  return resolved;
}

bool ColorTables::isTranslucent(const ColorTable& table) {
  constexpr std::size_t CHANNELS = 4;
  constexpr std::uint8_t OPAQUE_ALPHA = 255;
  const std::vector<std::uint8_t>& colors = table.rgba;
  const auto [known, isNew] = _areTranslucent.try_emplace(&colors, false);
  for (std::size_t i = CHANNELS - 1; isNew && i < colors.size(); i += CHANNELS) {
    known->second = known->second || colors[i] != OPAQUE_ALPHA;
  }
  return known->second;
}

}  // namespace vemo
