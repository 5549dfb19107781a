#include "scenegraph/io/codec/PolyDataCheck.h"

#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <limits>
#include <span>
#include <string_view>
#include <unordered_set>

namespace lum::io {

namespace {

constexpr vtkIdType LARGE = 1024;
/// More are refused: VTK looks for arrays one by one.
constexpr std::size_t MAXIMUM_DATA_ARRAYS = 4096;

template <class T>
std::span<const T> valuesOf(vtkDataArray& array) {
  return {static_cast<const T*>(array.GetVoidPointer(0)),
          static_cast<std::size_t>(array.GetNumberOfValues())};
}

/// Calls visit with the values of one of a cell array's arrays.
template <class Visit>
auto visitIntegers(vtkDataArray& array, Visit&& visit) {
  return array.GetDataTypeSize() == 4 ? visit(valuesOf<std::int32_t>(array))
                                      : visit(valuesOf<std::int64_t>(array));
}

/// What `find` makes of an array, found once for a large one.
template <class Result, class Find>
Result remember(std::unordered_map<vtkDataArray*, Result>& known, vtkDataArray& array, Find&& find) {
  if (array.GetNumberOfValues() < LARGE) {
    return visitIntegers(array, find);
  }
  const auto found = known.find(&array);
  return found != known.end() ? found->second
                              : known.emplace(&array, visitIntegers(array, find)).first->second;
}

std::string findDataFault(const ArrayTable& arrays, std::int64_t tupleCount, std::string_view whose) {
  if (arrays.size() > MAXIMUM_DATA_ARRAYS) {
    return fmt::format("{} data arrays, at most {} are allowed", arrays.size(), MAXIMUM_DATA_ARRAYS);
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
  struct Kind {
    const char* name;
    vtkCellArray* cells;
    std::int64_t leastPoints;
  };
  std::int64_t cellCount = 0;
  for (const Kind& kind :
       {Kind{"verts", geometry->getVerts(), 1}, Kind{"lines", geometry->getLines(), 2},
        Kind{"strips", geometry->getStrips(), 3}, Kind{"polys", geometry->getPolys(), 3}}) {
    const std::string fault = findCellFault(kind.cells, kind.leastPoints, pointCount);
    if (!fault.empty()) {
      return fmt::format("{}: {}", kind.name, fault);
    }
    cellCount += kind.cells != nullptr ? kind.cells->GetNumberOfCells() : 0;
  }
  const std::string fault = findDataFault(geometry->getNodeDataArrays(), pointCount, "points");
  return fault.empty() ? findDataFault(geometry->getCellDataArrays(), cellCount, "cells") : fault;
}

std::string PolyDataCheck::findCellFault(vtkCellArray* cells, std::int64_t leastPoints,
                                         std::int64_t pointCount) {
  if (cells == nullptr) {
    return {};
  }
  const Offsets offsets = summarizeOffsets(*cells->GetOffsetsArray());
  vtkDataArray& connectivity = *cells->GetConnectivityArray();
  if (!offsets.isSound || offsets.last != connectivity.GetNumberOfValues()) {
    return fmt::format("the offsets do not rise from 0 to the {} entries of the connectivity",
                       connectivity.GetNumberOfValues());
  }
  if (offsets.shortestCell < leastPoints) {
    return fmt::format("a cell has {} points, at least {} are needed", offsets.shortestCell, leastPoints);
  }
  if (offsets.last == 0) {
    return {};
  }
  const Range range = findRange(connectivity);
  if (range.least < 0 || range.greatest >= pointCount) {
    return fmt::format("cells use points {} to {} of {}", range.least, range.greatest, pointCount);
  }
  return {};
}

PolyDataCheck::Offsets PolyDataCheck::summarizeOffsets(vtkDataArray& offsets) {
  return remember(_offsets, offsets, [](auto values) {
    Offsets result{!values.empty() && values[0] == 0, 0, std::numeric_limits<std::int64_t>::max()};
    for (std::size_t i = 1; i < values.size(); ++i) {
      if (values[i] < values[i - 1]) {
        result.isSound = false;
        break;
      }
      result.shortestCell = std::min<std::int64_t>(result.shortestCell, values[i] - values[i - 1]);
    }
    result.last = values.empty() ? 0 : values.back();
    return result;
  });
}

PolyDataCheck::Range PolyDataCheck::findRange(vtkDataArray& connectivity) {
  return remember(_ranges, connectivity, [](auto values) {
    const auto [least, greatest] = std::ranges::minmax(values);
    return Range{least, greatest};
  });
}

}  // namespace lum::io
