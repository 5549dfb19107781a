#include "scenegraph/io/codec/PolyDataCheck.h"

#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <cstddef>
#include <fmt/format.h>
#include <string_view>
#include <unordered_set>

namespace lum::io {

namespace {

/// More are refused: VTK looks for arrays one by one.
constexpr std::size_t MAX_DATA_ARRAYS = 4096;

std::string findDataFault(const ArrayTable& arrays, std::int64_t tupleCount, std::string_view whose) {
  if (arrays.size() > MAX_DATA_ARRAYS) {
    return fmt::format("{} data arrays, at most {} are allowed", arrays.size(), MAX_DATA_ARRAYS);
  }
  std::unordered_set<std::string_view> names;
  for (const auto& array : arrays) {
    const std::string_view name = array->GetName() != nullptr ? array->GetName() : "";
    if (array->GetNumberOfTuples() != tupleCount) {
      return fmt::format("the data array \"{}\" has {} tuples for {} {}", name, array->GetNumberOfTuples(),
                         tupleCount, whose);
    }
    if (!names.insert(name).second) {
      return fmt::format("two data arrays of the {} are named \"{}\"", whose, name);
    }
  }
  return {};
}

}  // namespace

std::string PolyDataCheck::findFault(const Node& node) {
  const auto* geometry = dynamic_cast<const PolyDataNode*>(&node);
  if (geometry == nullptr) {
    return {};
  }
  vtkDataArray* points = geometry->getPoints();
  if (points != nullptr && points->GetNumberOfComponents() != 3) {
    return fmt::format("points have {} coordinates", points->GetNumberOfComponents());
  }
  const std::int64_t pointCount = points != nullptr ? points->GetNumberOfTuples() : 0;
  std::int64_t cellCount = 0;
  for (const vemo::CellKind kind : vemo::FILE_CELL_KINDS) {
    vtkCellArray* const cells = geometry->getCells(kind);
    if (cells == nullptr) {
      continue;
    }
    const vemo::CellKindTraits& traits = vemo::traitsOf(kind);
    const std::string fault = _cells.findFault(*cells, {pointCount, traits.leastPoints});
    if (!fault.empty()) {
      return fmt::format("{}: {}", traits.name, fault);
    }
    cellCount += cells->GetNumberOfCells();
  }
  const std::string fault = findDataFault(geometry->getNodeDataArrays(), pointCount, "points");
  return fault.empty() ? findDataFault(geometry->getCellDataArrays(), cellCount, "cells") : fault;
}

}  // namespace lum::io
