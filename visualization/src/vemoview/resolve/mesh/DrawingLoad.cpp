#include "vemoview/resolve/mesh/DrawingLoad.h"

#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <fmt/format.h>
#include <unordered_set>

namespace vemo {

namespace {

std::unordered_set<const vtkAbstractArray*> arraysOf(vtkDataSetAttributes& data) {
  std::unordered_set<const vtkAbstractArray*> arrays;
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    arrays.insert(data.GetAbstractArray(i));
  }
  return arrays;
}

/// The tuples of arrays that others do not have.
vtkIdType countTuples(vtkDataSetAttributes& data, vtkDataSetAttributes& others) {
  const auto known = arraysOf(others);
  vtkIdType tuples = 0;
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    vtkAbstractArray& array = *data.GetAbstractArray(i);
    tuples += known.contains(&array) ? 0 : array.GetNumberOfTuples();
  }
  return tuples;
}

}  // namespace

void DrawingLoad::requireDrawn(const lum::PolyDataNode& largest) const {
  using Limits = DrawingLimits;
  const vtkIdType most = std::min(Limits::MOST_DRAWN, Limits::DRAWN + Limits::DRAWN_PER_ELEMENT * content);
  if (drawn > most) {
    throw SceneTooLarge(
        fmt::format("The scene is too large to be drawn: with all repeats and shared data, {} points, cells "
                    "and corners would be drawn, more than {}, most of them of \"{}\"",
                    drawn, most, itemNameOf(largest)));
  }
}

vtkIdType DrawingLoad::mostMade() const {
  return DrawingLimits::MADE + DrawingLimits::MADE_PER_ELEMENT * content;
}

void DrawingLoad::requireMade(const lum::PolyDataNode& largest) const {
  const vtkIdType most = mostMade();
  if (made > most) {
    throw SceneTooLarge(
        fmt::format("The scene is too large to be drawn: more than {} points, cells and "
                    "corners would have to be copied, those of \"{}\" among them",
                    most, itemNameOf(largest)));
  }
}

void DrawingLoad::requireCopies() const {
  if (copies > DrawingLimits::COPIES) {
    throw SceneTooLarge(fmt::format("The scene is too large to be drawn: more than {} copies of meshes",
                                    DrawingLimits::COPIES));
  }
}

vtkIdType ContentCount::add(vtkDataArray& array, vtkIdType count) {
  const bool isNew = _arrays.insert(&array).second;
  if (isNew) {
    _added.push_back(&array);
  }
  return isNew ? count : 0;
}

void ContentCount::takeBack() {
  for (const void* const array : _added) {
    _arrays.erase(array);
  }
  _added.clear();
}

vtkIdType ContentCount::add(const lum::PolyDataNode& node) {
  vtkIdType count = 0;
  if (vtkDataArray* const points = node.getPoints()) {
    count += add(*points, points->GetNumberOfTuples());
  }
  for (const CellKindTraits& kind : CELL_KINDS) {
    if (vtkCellArray* const cells = node.getCells(kind.kind)) {
      count += add(*cells->GetOffsetsArray(), cells->GetNumberOfCells());
      count += add(*cells->GetConnectivityArray(), cells->GetNumberOfConnectivityIds());
    }
  }
  for (const lum::ArrayTable* const table : {&node.getNodeDataArrays(), &node.getCellDataArrays()}) {
    for (const auto& array : *table) {
      count += add(*array, array->GetNumberOfTuples());
    }
  }
  return count;
}

vtkIdType sizeOf(const vtkCellArray& cells) {
  return cells.GetNumberOfCells() + cells.GetNumberOfConnectivityIds();
}

vtkIdType sizeOf(const lum::PolyDataNode& node) {
  vtkIdType size = node.getPoints() != nullptr ? node.getPoints()->GetNumberOfTuples() : 0;
  for (const CellKindTraits& kind : CELL_KINDS) {
    const vtkCellArray* const cells = node.getCells(kind.kind);
    size += cells != nullptr ? sizeOf(*cells) : 0;
  }
  return size;
}

vtkIdType countMade(vtkPolyData& result, vtkPolyData& source) {
  vtkIdType count = countTuples(*result.GetPointData(), *source.GetPointData()) +
                    countTuples(*result.GetCellData(), *source.GetCellData());
  if (result.GetPoints()->GetData() != source.GetPoints()->GetData()) {
    count += result.GetNumberOfPoints();
  }
  for (const CellKindTraits& kind : CELL_KINDS) {
    if (kind.get(result) != kind.get(source)) {
      count += sizeOf(*kind.get(result));
    }
  }
  return count;
}

}  // namespace vemo
