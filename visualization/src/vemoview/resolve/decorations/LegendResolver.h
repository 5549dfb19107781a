#pragma once

#include "vemoview/resolve/values/ColorTableResolver.h"
#include <vemo/resolve/Decoration.h>

#include <optional>

namespace lum {
class LegendDrawable;
}

namespace vemo {

class FontResolver;

/// Nothing for a legend without a colour table, a place or a size.
std::optional<LegendDecoration> resolveLegend(const lum::LegendDrawable& legend, ColorTables& tables,
                                              FontResolver& fonts);

}  // namespace vemo
