#include "geometry/Connectivity.h"

#include "geometry/NewArray.h"
#include <vemo/base/InternalError.h>

#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkTypeInt32Array.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vemo {
namespace {

/// The result of a pass over a list.
struct Compaction {
  std::size_t kept = 0;     ///< indices of the kept cells, at the list's front
  std::size_t offsets = 1;  ///< offsets written: one more than the kept cells
  std::vector<std::int32_t> dropped;
  std::optional<std::int32_t> indexOutside;
};

/// Whether a triangle, and one whose points are all there, begins at `i`.
bool isTriangle(std::span<const std::int32_t> list, std::size_t i, std::uint32_t pointCount) {
  const auto isPoint = [&](std::size_t at) { return static_cast<std::uint32_t>(list[at]) < pointCount; };
  return list[i] == 3 && isPoint(i + 1) && isPoint(i + 2) && isPoint(i + 3);
}

/// As `compact` below, for the triangles that a list begins with: most lists
/// have nothing else, and whether all is well with one is a single branch.
void compactTriangles(std::span<std::int32_t> list, std::uint32_t pointCount, std::span<std::int32_t> offsets,
                      Compaction& result) {
  std::size_t cells = 0;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < list.size() && isTriangle(list, i, pointCount); i += 4) {
    list[kept] = list[i + 1];
    list[kept + 1] = list[i + 2];
    list[kept + 2] = list[i + 3];
    kept += 3;
    offsets[++cells] = static_cast<std::int32_t>(kept);
  }
  result.kept = kept;
  result.offsets = cells + 1;
}

/// Moves the indices of the cells to the front of the list, and checks them.
/// In place, since each cell's count is read and not written: the place written
/// to never overtakes the place read from.
/// @param list one that `countCells` has accepted
/// @param offsets room for one more than the cells
Compaction compact(std::span<std::int32_t> list, std::size_t leastPoints, vtkIdType pointCount,
                   std::span<std::int32_t> offsets) {
  Compaction result;
  offsets[0] = 0;
  if (leastPoints <= 3) {
    constexpr vtkIdType ALL_INDICES = vtkIdType{1} << 31U;
    compactTriangles(list, static_cast<std::uint32_t>(std::min(pointCount, ALL_INDICES)), offsets, result);
  }
  auto cell = static_cast<std::int32_t>(result.offsets - 1);
  for (std::size_t i = result.kept + result.offsets - 1; i < list.size(); ++cell) {
    const auto size = static_cast<std::size_t>(list[i++]);
    const auto indices = list.subspan(i, size);
    i += size;
    if (size < leastPoints) {
      result.dropped.push_back(cell);
      continue;
    }
    for (const std::int32_t index : indices) {
      if (index < 0 || index >= pointCount) {
        result.indexOutside = index;
        return result;
      }
      list[result.kept++] = index;
    }
    offsets[result.offsets++] = static_cast<std::int32_t>(result.kept);
  }
  return result;
}

}  // namespace

int countCells(std::span<const std::int32_t> list) {
  int count = 0;
  std::size_t i = 0;
  // Four triangles at a time: no load waits for the one before.
  for (; i + 16 <= list.size() && list[i] == 3 && list[i + 4] == 3 && list[i + 8] == 3 && list[i + 12] == 3;
       i += 16) {
    count += 4;
  }
  // A negative count would move backwards: stop here, before the end of the
  // list.
  while (i < list.size() && list[i] >= 0) {
    i += static_cast<std::size_t>(list[i]) + 1;
    ++count;
  }
  if (i != list.size()) {
    throw InternalError("Internal Error:  GeometryItem.countItemsInList():  i must be equal to list.size",
                        "i == list.size", __FILE__, __LINE__);
  }
  return count;
}

ImportedCells importCells(EntryBlock block, std::int32_t size, CellKind kind, vtkIdType pointCount) {
  VEMO_REQUIRE(size >= 0, "a list cannot have fewer than no integers");
  const std::span list(reinterpret_cast<std::int32_t*>(block.get()), static_cast<std::size_t>(size));
  ImportedCells result;
  // Counted in a separate pass: the offsets get their exact size, and a list
  // with several faults always shows the same one.
  result.listed = countCells(list);

  vtkNew<vtkTypeInt32Array> offsets;
  allocateTuples(*offsets, vtkIdType{result.listed} + 1);
  Compaction compaction =
      compact(list, static_cast<std::size_t>(traitsOf(kind).leastPoints), pointCount,
              {offsets->GetPointer(0), static_cast<std::size_t>(offsets->GetNumberOfValues())});
  result.dropped = std::move(compaction.dropped);
  result.indexOutside = compaction.indexOutside;
  if (result.indexOutside) {
    return result;
  }
  offsets->SetNumberOfValues(static_cast<vtkIdType>(compaction.offsets));

  vtkNew<vtkTypeInt32Array> connectivity;
  adoptBlock(*connectivity, std::move(block), static_cast<vtkIdType>(compaction.kept));
  result.cells = vtkSmartPointer<vtkCellArray>::New();
  result.cells->SetData(offsets, connectivity);
  return result;
}

std::vector<vtkIdType> droppedRows(std::span<const std::reference_wrapper<const ImportedCells>> lists) {
  std::vector<vtkIdType> rows;
  vtkIdType first = 0;
  for (const ImportedCells& list : lists) {
    for (const std::int32_t ordinal : list.dropped) {
      rows.push_back(first + ordinal);
    }
    first += list.listed;
  }
  return rows;
}

void removeRows(vtkFloatArray& array, std::span<const vtkIdType> rows) {
  const vtkIdType components = array.GetNumberOfComponents();
  float* const values = array.GetPointer(0);
  float* kept = values;
  vtkIdType next = 0;
  const auto keepUpTo = [&](vtkIdType row) {
    kept = std::copy(values + next * components, values + row * components, kept);
    next = row + 1;
  };
  for (const vtkIdType row : rows) {
    keepUpTo(row);
  }
  keepUpTo(array.GetNumberOfTuples());
  array.SetNumberOfTuples((kept - values) / components);
}

}  // namespace vemo
