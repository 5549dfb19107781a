#include "geometry/Connectivity.h"

#include "base/HugePages.h"
#include "geometry/NewArray.h"
#include "geometry/kernels/TriangleList.h"
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

/// The number of points of which a 32-bit index can name each.
constexpr vtkIdType ALL_INDICES = vtkIdType{1} << 31U;

/// The result of a pass over a list.
struct Compaction {
  std::size_t kept = 0;     ///< indices of the kept cells, at the list's front
  std::size_t offsets = 1;  ///< offsets written: one more than the kept cells
  std::vector<std::int32_t> dropped;
  std::optional<std::int32_t> indexOutside;
};

/// Moves the indices of the cells to the front of the list, and checks them.
/// In place, since each cell's count is read and not written: the place written
/// to never overtakes the place read from.
/// @param list one that `countCells` has accepted
/// @param triangles those that the list begins with, which are done already
/// @param offsets room for one more than the cells
Compaction compact(std::span<std::int32_t> list, std::size_t triangles, std::size_t leastPoints,
                   vtkIdType pointCount, std::span<std::int32_t> offsets) {
  Compaction result;
  result.kept = 3 * triangles;
  result.offsets = triangles + 1;
  auto cell = static_cast<std::int32_t>(triangles);
  for (std::size_t i = 4 * triangles; i < list.size(); ++cell) {
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

std::span<std::int32_t> valuesOf(vtkTypeInt32Array& array) {
  return {array.GetPointer(0), static_cast<std::size_t>(array.GetNumberOfValues())};
}

/// The first offset of cells, and room for the others.
vtkSmartPointer<vtkTypeInt32Array> newOffsets(std::size_t cells) {
  auto offsets = vtkSmartPointer<vtkTypeInt32Array>::New();
  allocateTuples(*offsets, static_cast<vtkIdType>(cells) + 1);
  offsets->SetValue(0, 0);
  return offsets;
}

/// Offsets of which some are known, and room for more.
vtkSmartPointer<vtkTypeInt32Array> newOffsets(vtkTypeInt32Array& known, std::size_t knownCells,
                                              std::size_t moreCells) {
  auto offsets = newOffsets(knownCells + moreCells);
  std::ranges::copy(valuesOf(known).first(knownCells + 1), offsets->GetPointer(0));
  return offsets;
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
    InternalError error("Internal Error:  GeometryItem.countItemsInList():  i must be equal to list.size",
                        "i == list.size", __FILE__, __LINE__);
    error.getProperties().set("cause", "the list does not end with a whole cell; the file may be corrupt");
    throw error;
  }
  return count;
}

ImportedCells importCells(EntryBlock block, std::int32_t size, CellKind kind, vtkIdType pointCount) {
  VEMO_REQUIRE(size >= 0, "a list cannot have fewer than no integers");
  const std::span list(reinterpret_cast<std::int32_t*>(block.get()), static_cast<std::size_t>(size));
  // Most lists have nothing but triangles: their number follows from the size.
  const bool mayBeTriangles = !list.empty() && list.front() == 3;
  auto offsets = newOffsets(mayBeTriangles ? list.size() / 4 : 0);
  const std::size_t triangles = compactTriangles(
      list, static_cast<std::uint32_t>(std::min(pointCount, ALL_INDICES)), valuesOf(*offsets).subspan(1));
  // Counted in a separate pass: the offsets get their exact size, and a list
  // with several faults always shows the same one.
  const auto others = static_cast<std::size_t>(countCells(list.subspan(4 * triangles)));
  if (others > 0) {
    offsets = newOffsets(*offsets, triangles, others);
  }
  ImportedCells result;
  result.listed = static_cast<int>(triangles + others);
  Compaction compaction = compact(list, triangles, static_cast<std::size_t>(traitsOf(kind).leastPoints),
                                  pointCount, valuesOf(*offsets));
  result.dropped = std::move(compaction.dropped);
  result.indexOutside = compaction.indexOutside;
  if (result.indexOutside) {
    return result;
  }
  offsets->SetNumberOfValues(static_cast<vtkIdType>(compaction.offsets));

  // The counts that stood between the indices: a quarter of a list of triangles.
  OS::releasePages(list.subspan(compaction.kept).data(), list.subspan(compaction.kept).size_bytes());
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
