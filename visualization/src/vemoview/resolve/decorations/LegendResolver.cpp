#include "vemoview/resolve/decorations/LegendResolver.h"

#include "scenegraph/attributes/NumberFormat.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include "vemoview/resolve/mesh/ColorTableResolver.h"
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>

#include <vtkDoubleArray.h>
#include <vtkNew.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

constexpr double LEGEND_LINE_HEIGHT = 0.03;
constexpr int MOST_LABELS = 100;

const lum::LegendAttributes& defaultAttributes() {
  static const lum::Ptr<lum::LegendAttributes> attributes(
      new lum::LegendAttributes(lum::ClassNameNodeInitializer(lum::LegendAttributes::getClassName())));
  return *attributes;
}

bool isNearCanvas(const LegendDecoration& legend) {
  constexpr double FAR = 4.0;
  return std::ranges::all_of(legend.position, [](double value) { return std::abs(value) <= FAR; }) &&
         std::ranges::all_of(legend.size, [](double size) { return size > 0.0 && size <= FAR; });
}

ColorTable resolveTable(const lum::ColorLookupTable& table) {
  vtkNew<vtkDoubleArray> ends;
  ends->InsertNextValue(table.getScalarRange()[0]);
  ends->InsertNextValue(table.getScalarRange()[1]);
  return resolveColorTable(&table, *ends);
}

}  // namespace

std::optional<LegendDecoration> resolveLegend(const lum::LegendDrawable& legend) {
  const auto* const own = legend.findAttributes<lum::LegendAttributes>();
  const lum::LegendAttributes& attributes = own != nullptr ? *own : defaultAttributes();
  LegendDecoration result;
  if (const auto* const position = legend.findAttributes<lum::PositionAttributes>()) {
    result.position = {position->getPosition()[0], position->getPosition()[1]};
  }
  result.size = attributes.getSize();
  if (legend.hasColorLookupTable() == nullptr || !isNearCanvas(result)) {
    return std::nullopt;
  }
  const auto* const style = legend.findAttributes<lum::TextAttributes>();
  result.table = resolveTable(*legend.hasColorLookupTable());
  result.title = attributes.getTitle();
  result.isVertical = attributes.getOrientation() == lum::LegendOrientation::VERTICAL;
  result.labelCount = std::clamp(attributes.getNumberOfLabels(), 0, MOST_LABELS);
  result.labelFormat = lum::isNumberFormat(attributes.getLabelFormat())
                           ? attributes.getLabelFormat()
                           : defaultAttributes().getLabelFormat();
  result.style = resolveTextStyle(style);
  result.lineHeight = resolveLineHeight(style, LEGEND_LINE_HEIGHT);
  return result;
}

}  // namespace vemo
