#include "vemoview/window/ValueGroups.h"

#include "vemoview/window/ItemText.h"
#include "vemoview/window/ValueText.h"
#include <vemo/resolve/Pick.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>
#include <vemo/scenegraph/inspect/GeometryCounts.h>

#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <fmt/format.h>
#include <functional>

namespace vemo {

namespace {

/// With the digits that coordinates in single precision have.
QString positionText(const Vector3& position) {
  return QString::fromStdString(
      fmt::format("({:.9g}, {:.9g}, {:.9g})", position[0], position[1], position[2]));
}

std::vector<NamedValue> describeArrays(const lum::ArrayTable& arrays,
                                       const std::function<QString(vtkDataArray&)>& valueOf) {
  std::vector<NamedValue> values;
  for (const auto& array : arrays) {
    if (array != nullptr) {
      values.push_back({nameOf(*array), valueOf(*array)});
    }
  }
  return values;
}

ValueGroup describeIdentity(const ItemTree& items, int item) {
  const lum::Drawable& content = *items[item].content;
  ValueGroup group{"Item", {{"Name", pathOf(items, item)}, {"Kind", kindOf(content)}}};
  if (items[item].childCount > 0) {
    group.values.push_back({"Items", countText(items[item].childCount)});
  }
  return group;
}

ValueGroup describeGeometry(const lum::Drawable& drawable) {
  const auto counts = lum::GeometryCounts::ofDrawable(drawable);
  ValueGroup group{"Geometry", {}};
  const auto add = [&group](const char* name, std::int64_t count) {
    if (count > 0) {
      group.values.push_back({name, countText(count)});
    }
  };
  add("Points", counts.getPoints());
  for (const CellKindTraits& kind : CELL_KINDS) {
    add(kind.title, counts.getCells(kind.kind));
  }
  return group;
}

/// What the user knows of the array that colours a drawable.
std::vector<NamedValue> describeColoring(const lum::Drawable& drawable) {
  const auto* const scalars = drawable.findAttributes<lum::ScalarAttributes>();
  const auto* const array = scalars != nullptr ? scalars->hasDataArray() : nullptr;
  if (array == nullptr || array->getDataArrayName().empty()) {
    return {};
  }
  const QString name = toText(array->getDataArrayName());
  const QString title = toText(array->getDataArrayPresentationName());
  return {{"Coloured by", title.isEmpty() || title == name ? name : name + ": " + title}};
}

void describeMesh(const lum::PolyDataNode& mesh, std::vector<ValueGroup>& groups) {
  const auto range = [](vtkDataArray& array) { return rangeText(array); };
  if (vtkDataArray* const points = mesh.getPoints()) {
    groups.push_back(
        {"Extent",
         {{"x", rangeText(*points, 0)}, {"y", rangeText(*points, 1)}, {"z", rangeText(*points, 2)}}});
  }
  groups.push_back({"At points", describeArrays(mesh.getNodeDataArrays(), range)});
  groups.push_back({"At cells", describeArrays(mesh.getCellDataArrays(), range)});
}

std::vector<ValueGroup> withoutEmptyOnes(std::vector<ValueGroup> groups) {
  std::erase_if(groups, [](const ValueGroup& group) { return group.values.empty(); });
  return groups;
}

}  // namespace

std::vector<ValueGroup> describeItem(const ItemTree& items, int item) {
  // An item mostly has one; of many the user cannot read all.
  constexpr int MAX_MESHES = 10;
  const lum::Drawable& content = *items[item].content;
  std::vector<ValueGroup> groups = {describeIdentity(items, item), describeGeometry(content)};
  for (NamedValue& value : describeColoring(content)) {
    groups[0].values.push_back(std::move(value));
  }
  int meshes = 0;
  for (const auto& node : content.getNodes()) {
    const auto* const mesh = dynamic_cast<const lum::PolyDataNode*>(node.getObject());
    if (mesh != nullptr && ++meshes <= MAX_MESHES) {
      describeMesh(*mesh, groups);
    }
  }
  return withoutEmptyOnes(std::move(groups));
}

std::vector<ValueGroup> describePick(const ItemTree& items, const Pick& pick) {
  const int item = items.find(pick.drawable);
  std::vector<ValueGroup> groups;
  if (item != ItemTree::NONE) {
    groups.push_back(describeIdentity(items, item));
  }
  ValueGroup picked{"Picked", {{"Position", positionText(pick.position)}}};
  if (pick.cell >= 0) {
    picked.values.push_back({"Cell", QString::number(pick.cell)});
  }
  picked.values.push_back({"Nearest point", QString::number(pick.point)});
  picked.values.push_back({"Its position", positionText(pick.pointPosition)});
  groups.push_back(std::move(picked));
  groups.push_back({"At the point", describeArrays(pick.node->getNodeDataArrays(), [&](vtkDataArray& array) {
                      return tupleText(array, pick.point);
                    })});
  groups.push_back({"In the cell", describeArrays(pick.node->getCellDataArrays(), [&](vtkDataArray& array) {
                      return tupleText(array, pick.cell);
                    })});
  return withoutEmptyOnes(std::move(groups));
}

}  // namespace vemo
