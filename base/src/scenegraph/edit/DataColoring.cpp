#include "geometry/Normals.h"
#include "scenegraph/coloring/ColorBytes.h"
#include "scenegraph/coloring/ColoringScalars.h"
#include "scenegraph/edit/ColoredLegends.h"
#include "scenegraph/edit/RangeChange.h"
#include "scenegraph/inspect/ArrayRange.h"
#include <vemo/base/PrintableText.h>
#include <vemo/geometry/CellKind.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/edit/DataColoring.h>
#include <vemo/scenegraph/edit/EditError.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <set>
#include <string_view>
#include <utility>

namespace lum {

namespace {

/// A drawable, and where it has an array.
struct Use {
  GeometryDrawable* drawable;
  DataLocation location;
};

struct Colors {
  SharedNumbers values;
  std::int32_t count = 0;
  ScaleMode scale = ScaleMode::LINEAR;
  RampMode ramp = RampMode::LINEAR;
};

const ArrayTable& arraysAt(const PolyDataNode& node, DataLocation location) {
  return location == DataLocation::CELLS ? node.getCellDataArrays() : node.getNodeDataArrays();
}

vtkIdType countAt(const PolyDataNode& node, DataLocation location) {
  if (location == DataLocation::POINTS) {
    return node.getPoints() != nullptr ? node.getPoints()->GetNumberOfTuples() : 0;
  }
  vtkIdType cells = 0;
  for (const vemo::CellKindTraits& kind : vemo::CELL_KINDS) {
    const vtkCellArray* const array = node.getCells(kind.kind);
    cells += array != nullptr ? array->GetNumberOfCells() : 0;
  }
  return cells;
}

/// They serve for shading; an import computes them.
bool isNormals(vtkDataArray& array) {
  return std::string_view(array.GetName()) == vemo::NORMALS && array.GetNumberOfComponents() == 3;
}

/// Calls visit(vtkDataArray&) for the arrays of a drawable that can colour it.
template <class Visit>
void forEachArray(const GeometryDrawable& drawable, DataLocation location, Visit&& visit) {
  for (const auto& node : drawable.getNodes()) {
    const auto* const mesh = dynamic_cast<const PolyDataNode*>(node.getObject());
    if (mesh == nullptr) {
      continue;
    }
    for (const auto& array : arraysAt(*mesh, location)) {
      if (array->GetName() != nullptr && !isNormals(*array) &&
          array->GetNumberOfTuples() == countAt(*mesh, location)) {
        visit(*array);
      }
    }
  }
}

bool hasArray(const GeometryDrawable& drawable, DataLocation location, const std::string& name) {
  bool isFound = false;
  forEachArray(drawable, location,
               [&](vtkDataArray& array) { isFound = isFound || array.GetName() == name; });
  return isFound;
}

/// The colour table of a drawable that is coloured by data; null for any other.
ColorLookupTable* tableOf(const GeometryDrawable& drawable) {
  const auto* const scalars = findColoringScalars(drawable);
  return scalars != nullptr ? scalars->hasColorLookupTable() : nullptr;
}

const std::string& arrayNameOf(const GeometryDrawable& drawable) {
  return drawable.findAttributes<ScalarAttributes>()->hasDataArray()->getDataArrayName();
}

bool isColoredBy(const GeometryDrawable& drawable, const std::string& array) {
  return tableOf(drawable) != nullptr && arrayNameOf(drawable) == array;
}

/// Where a drawable has an array; at the points if at both, unless it is coloured by the
/// one at the cells.
std::optional<DataLocation> locationOf(const GeometryDrawable& drawable, const std::string& array) {
  const bool isAtCells = isColoredBy(drawable, array) && coloringLocation(drawable) == DataLocation::CELLS;
  const DataLocation first = isAtCells ? DataLocation::CELLS : DataLocation::POINTS;
  const DataLocation second = isAtCells ? DataLocation::POINTS : DataLocation::CELLS;
  return hasArray(drawable, first, array)    ? std::optional(first)
         : hasArray(drawable, second, array) ? std::optional(second)
                                             : std::nullopt;
}

std::vector<Use> findUses(SceneNode& scene, const std::string& array) {
  std::vector<Use> uses;
  forEachNodeOf<GeometryDrawable>(scene, [&](GeometryDrawable& drawable) {
    if (const auto location = locationOf(drawable, array)) {
      uses.push_back({&drawable, *location});
    }
  });
  return uses;
}

Vector2 rangeOf(const std::vector<Use>& uses, const std::string& name) {
  ValueRange all;
  for (const Use& use : uses) {
    forEachArray(*use.drawable, use.location, [&](vtkDataArray& array) {
      if (array.GetName() == name && array.GetNumberOfTuples() > 0) {
        const ValueRange range = finiteRanges(array).front();
        all.least = std::min(all.least, range.least);
        all.greatest = std::max(all.greatest, range.greatest);
      }
    });
  }
  return all.least <= all.greatest ? Vector2{all.least, all.greatest} : Vector2{0.0, 1.0};
}

void requireUsable(const Vector2& range, ScaleMode scale) {
  const std::string text = fmt::format("The range from {} to {}", range[0], range[1]);
  if (!std::isfinite(range[1] - range[0])) {
    throw EditError(text + " is not finite");
  }
  if (range[0] >= range[1]) {
    throw EditError(text + " does not start below its end");
  }
  if (scale == ScaleMode::LOG10 && range[0] <= 0.0) {
    throw EditError(text + " does not start above 0, as logarithmic colours require");
  }
}

std::string quoted(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    text += (text.empty() ? "\"" : ", \"") + vemo::toPrintableLine(name) + '"';
  }
  return text;
}

/// As they are drawn: of a range that starts at its greater value they are reversed, too.
Colors drawnColors(const ColorLookupTable& table) {
  std::vector<double> values = vemo::numbersOf(vemo::makeUsable(table).table.rgba);
  const auto count = static_cast<std::int32_t>(values.size() / 4);
  return {std::move(values), count, ScaleMode::LINEAR, table.getRampMode()};
}

/// The table whose colours the array gets; null without any in the scene.
const ColorLookupTable* chooseTable(SceneNode& scene, const std::vector<Use>& uses,
                                    const std::string& array) {
  for (const Use& use : uses) {
    if (isColoredBy(*use.drawable, array)) {
      return tableOf(*use.drawable);
    }
  }
  for (const Use& use : uses) {
    if (const auto* const scalars = use.drawable->findAttributes<ScalarAttributes>();
        scalars != nullptr && scalars->hasColorLookupTable() != nullptr) {
      return scalars->hasColorLookupTable();
    }
  }
  const ColorLookupTable* found = nullptr;
  forEachNodeOf<ColorLookupTable>(
      scene, [&](ColorLookupTable& table) { found = found == nullptr ? &table : found; });
  return found;
}

/// A logarithmic scale belongs to the array, the colours to the scene. Without any they are a rainbow.
Colors chooseColors(SceneNode& scene, const std::vector<Use>& uses, const std::string& array) {
  const Ptr<ColorLookupTable> none(
      new ColorLookupTable(ClassNameNodeInitializer(ColorLookupTable::getClassName())));
  const ColorLookupTable* const found = chooseTable(scene, uses, array);
  const ColorLookupTable& table = found != nullptr ? *found : *none;
  Colors colors = drawnColors(table);
  if (std::ranges::any_of(uses, [&](const Use& use) { return isColoredBy(*use.drawable, array); })) {
    colors.scale = table.getScaleMode();
  }
  return colors;
}

void fill(ColorLookupTable& table, const Colors& colors, const Vector2& range) {
  table.setColorValues(colors.values);
  table.setNumColor(colors.count);
  table.setColorSpace(ColorSpace::RGBA);
  table.setScalarRange(range);
  table.setScaleMode(colors.scale);
  table.setRampMode(colors.ramp);
}

void apply(const Use& use, const std::string& array, const Colors& colors, const Vector2& range) {
  use.drawable->getColorAttributes()->setColorMode(ColorMode::DATA);
  use.drawable->getAttributes<DataLocationAttributes>().setDataLocation(use.location);
  auto& scalars = use.drawable->getAttributes<ScalarAttributes>();
  DataArrayAttributes& data = scalars.getDataArray();
  if (data.getDataArrayName() != array) {
    data.setDataArrayName(array);
    data.setDataArrayPresentationName(array);
  }
  data.setRange(range);
  fill(scalars.getColorLookupTable(), colors, range);
}

FormerColors formerColors(SceneNode& scene, const std::vector<Use>& uses, const std::string& array) {
  std::set<const Drawable*> changed;
  for (const Use& use : uses) {
    changed.insert(use.drawable);
  }
  FormerColors former;
  vemo::UsableColorTables usable;
  forEachNodeOf<GeometryDrawable>(scene, [&](const GeometryDrawable& drawable) {
    if (const ColorLookupTable* const table = tableOf(drawable)) {
      auto& tables = !changed.contains(&drawable)     ? former.kept
                     : arrayNameOf(drawable) == array ? former.ofArray
                                                      : former.ofOthers;
      tables.insert(usable.make(*table).table);
    }
  });
  return former;
}

std::vector<std::string> sorted(const std::set<std::string>& names) {
  return {names.begin(), names.end()};
}

}  // namespace

std::vector<std::string> listColorArrays(SceneNode& scene) {
  std::set<std::string> names;
  forEachNodeOf<GeometryDrawable>(scene, [&](const GeometryDrawable& drawable) {
    for (const DataLocation location : {DataLocation::POINTS, DataLocation::CELLS}) {
      forEachArray(drawable, location, [&](vtkDataArray& array) { names.insert(array.GetName()); });
    }
  });
  return sorted(names);
}

std::vector<std::string> listUsedColorArrays(SceneNode& scene) {
  std::set<std::string> names;
  forEachNodeOf<GeometryDrawable>(scene, [&](const GeometryDrawable& drawable) {
    if (tableOf(drawable) != nullptr && locationOf(drawable, arrayNameOf(drawable))) {
      names.insert(arrayNameOf(drawable));
    }
  });
  return sorted(names);
}

std::optional<Vector2> findColorRange(SceneNode& scene, const std::string& array) {
  for (const Use& use : findUses(scene, array)) {
    if (isColoredBy(*use.drawable, array)) {
      return vemo::makeUsable(*tableOf(*use.drawable)).table.range;
    }
  }
  return std::nullopt;
}

void colorByArray(SceneNode& scene, const std::string& array, const std::optional<Vector2>& range) {
  const std::vector<Use> uses = findUses(scene, array);
  if (uses.empty()) {
    const std::vector<std::string> all = listColorArrays(scene);
    throw EditError(fmt::format("No geometry has an array \"{}\"; the scene has {}",
                                vemo::toPrintableLine(array), all.empty() ? "no arrays" : quoted(all)));
  }
  const Colors colors = chooseColors(scene, uses, array);
  if (range) {
    requireUsable(*range, colors.scale);
  }
  const FormerColors former = formerColors(scene, uses, array);
  const Vector2 used = range ? *range : rangeOf(uses, array);
  for (const Use& use : uses) {
    apply(use, array, colors, used);
  }
  updateLegends(scene, former, array, *tableOf(*uses.front().drawable));
}

void setColorRange(SceneNode& scene, const Vector2& range, const std::optional<std::string>& array) {
  const std::vector<std::string> arrays = array ? std::vector{*array} : listUsedColorArrays(scene);
  if (arrays.size() != 1) {
    throw EditError(arrays.empty() ? "No geometry is coloured by an array that could have a range"
                                   : "A range needs an array, as the scene is coloured by " + quoted(arrays));
  }
  std::vector<Use> uses = findUses(scene, arrays.front());
  std::erase_if(uses, [&](const Use& use) { return !isColoredBy(*use.drawable, arrays.front()); });
  for (const Use& use : uses) {
    requireUsable(range, tableOf(*use.drawable)->getScaleMode());
  }
  RangeChange change(range);
  setLegendRange(scene, formerColors(scene, uses, arrays.front()), change);
  for (const Use& use : uses) {
    change.applyTo(*tableOf(*use.drawable));
    use.drawable->findAttributes<ScalarAttributes>()->hasDataArray()->setRange(range);
  }
}

}  // namespace lum
