#pragma once

#include <vemo/resolve/Decoration.h>

#include <optional>

namespace lum {
class LegendDrawable;
}

namespace vemo {

/// Nothing for a legend without a colour table, without a size or far outside
/// the canvas.
std::optional<LegendDecoration> resolveLegend(const lum::LegendDrawable& legend);

}  // namespace vemo
