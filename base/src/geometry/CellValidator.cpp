#include "geometry/CellValidator.h"

#include "geometry/Cells.h"
#include "geometry/kernels/IndexRange.h"

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <algorithm>
#include <fmt/format.h>
#include <limits>

namespace vemo {

std::string CellValidator::findFault(vtkCellArray& cells, const CellRules& rules) {
  const Offsets offsets = _offsets.get(*cells.GetOffsetsArray(), summarize);
  vtkDataArray& connectivity = *cells.GetConnectivityArray();
  const std::int64_t listed = connectivity.GetNumberOfValues();
  const bool isWithin = rules.mayHaveUnusedIndices ? offsets.last <= listed : offsets.last == listed;
  if (!offsets.isRising || !isWithin) {
    return fmt::format("the offsets do not rise from 0 to the {} entries of the connectivity", listed);
  }
  if (offsets.shortestCell < rules.leastPoints) {
    return fmt::format("a cell has {} points, at least {} are needed", offsets.shortestCell,
                       rules.leastPoints);
  }
  if (offsets.last == 0) {
    return {};
  }
  const auto find = [&offsets](vtkDataArray& array) { return findRange(array, offsets.last); };
  const IndexRange range = offsets.last == listed ? _ranges.get(connectivity, find) : find(connectivity);
  if (range.least < 0 || range.greatest >= rules.pointCount) {
    return fmt::format("cells use points {} to {} of {}", range.least, range.greatest, rules.pointCount);
  }
  return {};
}

CellValidator::Offsets CellValidator::summarize(vtkDataArray& offsets) {
  return withIndices(offsets, [](auto values) {
    Offsets result{false, 0, std::numeric_limits<std::int64_t>::max()};
    if (values.empty() || values[0] != 0) {
      return result;
    }
    for (std::size_t i = 1; i < values.size(); ++i) {
      if (values[i] < values[i - 1]) {
        return result;
      }
      result.shortestCell = std::min<std::int64_t>(result.shortestCell, values[i] - values[i - 1]);
    }
    result.isRising = true;
    result.last = values.back();
    return result;
  });
}

IndexRange CellValidator::findRange(vtkDataArray& connectivity, std::int64_t count) {
  return withIndices(connectivity,
                     [count](auto values) { return rangeOf(values.first(static_cast<std::size_t>(count))); });
}

}  // namespace vemo
