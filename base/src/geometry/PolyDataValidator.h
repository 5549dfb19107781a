#pragma once

#include "geometry/CellValidator.h"
#include <vemo/geometry/CellKind.h>

#include <vtkSmartPointer.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace vemo {

/// The arrays that poly data is made of. There need not be points, or cells of
/// every kind.
struct PolyDataArrays {
  using DataArrays = std::vector<vtkSmartPointer<vtkDataArray>>;

  vtkDataArray* points = nullptr;
  /// Indexed by kind.
  std::array<vtkCellArray*, CELL_KINDS.size()> cells{};
  const DataArrays& pointData;
  const DataArrays& cellData;
};

/// Over the points, and over the cells. More are refused: VTK looks for arrays one by
/// one.
inline constexpr std::size_t MAX_DATA_ARRAYS = 4096;

/// Whether the arrays of poly data fit each other, so that VTK, which trusts
/// its input, may be given them. An array that changes between calls must say so
/// (`Modified`).
class VEMO_GEOMETRY_EXPORT PolyDataValidator {
 public:
  /// What is wrong: points that do not have three coordinates; cells with too
  /// few points, or with indices outside the points; data arrays that do not
  /// have one tuple for each point or cell, share a name, or are too many. Empty for
  /// valid poly data.
  std::string findFault(const PolyDataArrays& arrays);

 private:
  CellValidator _cells;
};

}  // namespace vemo
