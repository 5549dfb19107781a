#pragma once

#include "geometry/AdoptedArray.h"
#include <vemo/geometry/CellKind.h>
#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>
#include <vtkType.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

class vtkCellArray;
class vtkFloatArray;

/// From the flat lists of an archive to cells and cell data that VTK can trust.
///
/// A connectivity list is a sequence of cells, each written as its number of
/// points n followed by n point indices.
namespace vemo {

/// The number of cells in a list, those with too few points among them; 0 for
/// an empty list.
/// @throws InternalError when the cells do not end exactly where the list does;
///   a negative number of points counts as such
VEMO_GEOMETRY_EXPORT int countCells(std::span<const std::int32_t> list);

/// The cells of one list.
struct ImportedCells {
  /// 32-bit storage; null when `indexOutside` is set.
  vtkSmartPointer<vtkCellArray> cells;

  /// The number of cells in the list, including dropped ones.
  int listed = 0;

  /// The dropped cells' ordinals in the list, ascending; normally none.
  std::vector<std::int32_t> dropped;

  /// The first index in the list that is outside the points.
  std::optional<std::int32_t> indexOutside;
};

/// Turns a list into cells. The list's block becomes the storage of their
/// connectivity, the offsets are the only memory that is allocated. Cells with
/// fewer points than their kind needs are left out; their indices are not looked
/// at.
///
/// @param block the list as 32-bit integers in the machine's byte order; freed
///   when the list is refused
/// @param size the number of integers in the list; 0 goes with a null block too
/// @param pointCount the number of points that the indices may name
/// @throws InternalError as `countCells` does, also for a list that has an
///   index outside the points
VEMO_GEOMETRY_EXPORT ImportedCells importCells(EntryBlock block, std::int32_t size, CellKind kind,
                                               vtkIdType pointCount);

/// The rows, ascending, that the dropped cells have in the cell data of the
/// whole geometry.
/// @param lists the lists of the geometry in VTK's order (see CellKind); those
///   that it lacks may be left out
VEMO_GEOMETRY_EXPORT std::vector<vtkIdType> droppedRows(
    std::span<const std::reference_wrapper<const ImportedCells>> lists);

/// Removes tuples in place; the array's memory stays as large as it is.
/// @param rows ascending, each below the array's number of tuples
VEMO_GEOMETRY_EXPORT void removeRows(vtkFloatArray& array, std::span<const vtkIdType> rows);

}  // namespace vemo
