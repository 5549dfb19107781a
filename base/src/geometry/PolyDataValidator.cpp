#include "geometry/PolyDataValidator.h"

#include "base/Utf8.h"

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <cstddef>
#include <cstdint>
#include <fmt/format.h>
#include <string_view>
#include <unordered_set>

namespace vemo {

namespace {

std::string findDataFault(const PolyDataArrays::DataArrays& arrays, std::int64_t tupleCount,
                          std::string_view whose) {
  if (arrays.size() > MAX_DATA_ARRAYS) {
    return fmt::format("{} data arrays, at most {} are allowed", arrays.size(), MAX_DATA_ARRAYS);
  }
  std::unordered_set<std::string_view> names;
  for (const auto& array : arrays) {
    const std::string_view name = array->GetName() != nullptr ? array->GetName() : "";
    if (array->GetNumberOfTuples() != tupleCount) {
      return fmt::format("the data array \"{}\" has {} tuples for {} {}", shortName(name),
                         array->GetNumberOfTuples(), tupleCount, whose);
    }
    if (!names.insert(name).second) {
      return fmt::format("two data arrays of the {} are named \"{}\"", whose, shortName(name));
    }
  }
  return {};
}

}  // namespace

std::string PolyDataValidator::findFault(const PolyDataArrays& arrays) {
  vtkDataArray* const points = arrays.points;
  if (points != nullptr && points->GetNumberOfComponents() != 3) {
    return fmt::format("points have {} coordinates", points->GetNumberOfComponents());
  }
  const std::int64_t pointCount = points != nullptr ? points->GetNumberOfTuples() : 0;
  std::int64_t cellCount = 0;
  for (const CellKind kind : FILE_CELL_KINDS) {
    vtkCellArray* const cells = arrays.cells[indexOf(kind)];
    if (cells == nullptr) {
      continue;
    }
    const CellKindTraits& traits = traitsOf(kind);
    const std::string fault = _cells.findFault(*cells, {pointCount, traits.leastPoints});
    if (!fault.empty()) {
      return fmt::format("{}: {}", traits.name, fault);
    }
    cellCount += cells->GetNumberOfCells();
  }
  const std::string fault = findDataFault(arrays.pointData, pointCount, "points");
  return fault.empty() ? findDataFault(arrays.cellData, cellCount, "cells") : fault;
}

}  // namespace vemo
