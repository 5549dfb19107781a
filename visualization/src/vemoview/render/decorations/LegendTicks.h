#pragma once

#include <vemo/base/Vector.h>
#include <vemo/render/Export.h>

#include <vector>

namespace vemo {

/// Where a colour bar has ticks.
struct LegendTick {
  /// From 0 at the low end of the bar to 1 at its high end.
  double place;
  double value;
};

/// At most `count` ticks: evenly spaced, the ends included; on a logarithmic bar
/// with two powers of ten or more at these. A range of one value has one tick in
/// the middle. The range is that of a ColorTable.
VEMO_RENDER_EXPORT std::vector<LegendTick> makeLegendTicks(const Vector<2, double>& range, bool isLog,
                                                           int count);

}  // namespace vemo
