#include "vemoview/resolve/decorations/LegendResolver.h"

#include "base/Utf8.h"
#include "scenegraph/attributes/NumberFormat.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include "vemoview/resolve/values/LegendTicks.h"
#include "vemoview/resolve/values/ReadableText.h"
#include <vemo/base/PrintableText.h>
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <fmt/format.h>

namespace vemo {

namespace {

constexpr double LEGEND_LINE_HEIGHT = 0.03;
constexpr int MAX_LABELS = 100;
/// Longer ones would leave no room for the bar.
constexpr std::size_t MAX_TITLE_BYTES = 500;

const lum::LegendAttributes& defaultAttributes() {
  static const auto& attributes = *new lum::Ptr<lum::LegendAttributes>(
      new lum::LegendAttributes(lum::ClassNameNodeInitializer(lum::LegendAttributes::getClassName())));
  return *attributes;
}

/// Empty for the default.
std::string resolveFormat(const std::string& format, const std::string& what) {
  if (format == defaultAttributes().getLabelFormat()) {
    return {};
  }
  if (lum::isNumberFormat(format)) {
    return readableText(format, MAX_TEXT_BYTES, what);
  }
  reportFinding(FindingCode::VALUE_IGNORED,
                what + " ignores the number format \"" + toPrintableLine(format) + "\", which is invalid");
  return {};
}

/// As many numbers as there are where all have room.
void reportUnsuitableFormat(const LegendDecoration& legend, const std::string& what) {
  const auto ticks = makeLegendTicks(legend.table.range, legend.table.isLog10, legend.labelCount);
  const auto labels = labelsOf(ticks, legend.labelFormat);
  if (areAnyAlike(ticks, labels)) {
    reportFinding(FindingCode::LEGEND_NUMBERS_ALIKE, what + " writes different numbers alike: its format \"" +
                                                         toPrintableLine(legend.labelFormat) +
                                                         "\" has too few digits");
  }
  // Digits are about half as wide as a line is high.
  const double lineHeight = std::min(legend.lineHeight, LEGEND_LINE_HEIGHT);
  const double across = USUAL_WIDTH / (0.45 * lineHeight * USUAL_HEIGHT);
  std::size_t longest = 0;
  for (const std::string& label : labels) {
    longest = std::max(longest, charactersOf(label).size());
  }
  if (static_cast<double>(longest) > (legend.isVertical ? across : across / 2.0)) {
    reportFinding(FindingCode::TEXT_CHANGED,
                  fmt::format("{} has numbers of {} characters, which are drawn smaller than stated in a "
                              "picture of {} x {} pixels",
                              what, longest, USUAL_WIDTH, USUAL_HEIGHT));
  }
}

/// Moves a legend that would leave the window into it; false for one without a
/// place.
bool placeInWindow(LegendDecoration& legend, const std::string& what) {
  constexpr double ROUNDING = 1e-6;
  bool isMoved = false;
  for (std::size_t i = 0; i < 2; ++i) {
    const double position = legend.position[i];
    const double size = legend.size[i];
    if (!std::isfinite(position) || !std::isfinite(size) || size <= 0.0) {
      reportFinding(FindingCode::DECORATION_NOT_DRAWN,
                    what + " is not drawn: it has no usable position or size");
      return false;
    }
    legend.size[i] = std::min(size, 1.0);
    legend.position[i] = std::clamp(position, 0.0, 1.0 - legend.size[i]);
    isMoved = isMoved || std::abs(legend.position[i] - position) > ROUNDING || size > 1.0 + ROUNDING;
  }
  if (isMoved) {
    reportFinding(FindingCode::LEGEND_MOVED, what + " would leave the window and is moved into it");
  }
  return true;
}

}  // namespace

std::optional<LegendDecoration> resolveLegend(const lum::LegendDrawable& legend, ColorTables& tables,
                                              FontResolver& fonts) {
  const auto* const own = legend.findAttributes<lum::LegendAttributes>();
  const lum::LegendAttributes& attributes = own != nullptr ? *own : defaultAttributes();
  LegendDecoration result;
  if (const auto* const position = legend.findAttributes<lum::PositionAttributes>()) {
    result.position = {position->getPosition()[0], position->getPosition()[1]};
  }
  result.size = attributes.getSize();
  const std::string what = "The legend \"" + shortName(legend.getName()) + '"';
  if (legend.hasColorLookupTable() == nullptr) {
    reportFinding(FindingCode::LEGEND_WITHOUT_COLORMAP, what + " has no colormap and is not drawn");
    return std::nullopt;
  }
  if (!placeInWindow(result, what)) {
    return std::nullopt;
  }
  const auto* const style = legend.findAttributes<lum::TextAttributes>();
  result.table = *tables.resolve(*legend.hasColorLookupTable());
  if (!isBlank(attributes.getTitle())) {
    result.title = readableText(attributes.getTitle(), MAX_TITLE_BYTES, what);
  }
  result.isVertical = attributes.getOrientation() == lum::LegendOrientation::VERTICAL;
  result.labelCount = std::clamp(attributes.getNumberOfLabels(), 0, MAX_LABELS);
  result.labelFormat = resolveFormat(attributes.getLabelFormat(), what);
  result.style = resolveTextStyle(style, {result.title, result.labelFormat}, what, fonts);
  result.lineHeight = resolveLineHeight(style, LEGEND_LINE_HEIGHT);
  reportUnsuitableFormat(result, what);
  if (result.labelCount > 0 || !result.title.empty()) {
    reportIfTooSmall(result.lineHeight, "The text of the legend \"" + shortName(legend.getName()) + '"');
  }
  return result;
}

}  // namespace vemo
