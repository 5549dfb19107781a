#include "scenegraph/edit/ColoredLegends.h"

#include "scenegraph/edit/RangeChange.h"
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/edit/Items.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace lum {

namespace {

using Legends = std::vector<LegendDrawable*>;

Legends legendsOf(SceneNode& scene, const std::set<vemo::ColorTable>& tables,
                  const std::set<vemo::ColorTable>& kept) {
  Legends legends;
  vemo::UsableColorTables usable;
  forEachNodeOf<LegendDrawable>(scene, [&](LegendDrawable& legend) {
    if (legend.hasColorLookupTable() != nullptr) {
      const vemo::ColorTable table = usable.make(*legend.hasColorLookupTable()).table;
      if (tables.contains(table) && !kept.contains(table)) {
        legends.push_back(&legend);
      }
    }
  });
  return legends;
}

/// Null if none is visible.
LegendDrawable* findShown(const Legends& legends) {
  const auto shown =
      std::ranges::find_if(legends, [](const LegendDrawable* legend) { return isShown(*legend); });
  return shown != legends.end() ? *shown : nullptr;
}

void copyTable(const ColorLookupTable& from, ColorLookupTable& to) {
  to.setColorValues(from.getColorValues());
  to.setNumColor(from.getNumColor());
  to.setColorSpace(from.getColorSpace());
  to.setScalarRange(from.getScalarRange());
  to.setScaleMode(from.getScaleMode());
  to.setRampMode(from.getRampMode());
}

/// The format of a legend of other values may have their unit.
void name(LegendDrawable& legend, const std::string& array) {
  legend.getLegendAttributes().setTitle(array);
  legend.getLegendAttributes().setLabelFormat("%.4g");
}

/// From left to right: beside the visible legends, if there is room.
double findFreePosition(SceneNode& scene, double width) {
  constexpr std::array POSITIONS{0.86, 0.02, 0.72, 0.16};
  const auto isFree = [&](double position) {
    bool result = true;
    forEachNodeOf<LegendDrawable>(scene, [&](LegendDrawable& legend) {
      const auto* const place = legend.findAttributes<PositionAttributes>();
      const auto* const attributes = legend.findAttributes<LegendAttributes>();
      const double left = place != nullptr ? place->getPosition()[0] : 0.0;
      const double right = left + (attributes != nullptr ? attributes->getSize()[0] : width);
      result = result && (!isShown(legend) || left >= position + width || right <= position);
    });
    return result;
  };
  const auto* const free = std::ranges::find_if(POSITIONS, isFree);
  return free != POSITIONS.end() ? *free : POSITIONS.front();
}

LegendDrawable& addLegend(SceneNode& scene, const std::string& array) {
  const Ptr<LegendDrawable> legend(
      new LegendDrawable(ClassNameNodeInitializer(LegendDrawable::getClassName())));
  legend->setName(array);
  const auto& size = legend->getLegendAttributes().getSize();
  const double middle = (1.0 - size[1]) / 2.0;
  legend->getPositionAttributes().setPosition({findFreePosition(scene, size[0]), middle, 0.0}, false);
  VEMO_REQUIRE(scene.getForegroundCanvas().getDrawableCollection().addNode(*legend),
               "A collection takes legends");
  return *legend;
}

}  // namespace

void updateLegends(SceneNode& scene, const FormerColors& former, const std::string& array,
                   const ColorLookupTable& table) {
  const Legends own = legendsOf(scene, former.ofArray, former.kept);
  const Legends others = legendsOf(scene, former.ofOthers, former.kept);
  LegendDrawable* legend = findShown(own);
  if (legend == nullptr) {
    legend = findShown(others);
    legend = legend != nullptr ? legend : &addLegend(scene, array);
    name(*legend, array);
  }
  copyTable(table, legend->getColorLookupTable());
  for (const Legends& replaced : {own, others}) {
    for (LegendDrawable* const each : replaced) {
      setShown(*each, each == legend);
    }
  }
}

void setLegendRange(SceneNode& scene, const FormerColors& former, RangeChange& change) {
  for (LegendDrawable* const legend : legendsOf(scene, former.ofArray, former.kept)) {
    change.applyTo(legend->getColorLookupTable());
  }
}

}  // namespace lum
