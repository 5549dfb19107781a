#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/Export.h>

#include <string>
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
VEMO_RESOLVE_EXPORT std::vector<LegendTick> makeLegendTicks(const Vector<2, double>& range, bool isLog,
                                                            int count);

/// The numbers at ticks, in the format of a LegendDecoration.
VEMO_RESOLVE_EXPORT std::vector<std::string> labelsOf(const std::vector<LegendTick>& ticks,
                                                      const std::string& format);

/// Whether ticks beside each other have different values, but the same label.
bool areAnyAlike(const std::vector<LegendTick>& ticks, const std::vector<std::string>& labels);

}  // namespace vemo
