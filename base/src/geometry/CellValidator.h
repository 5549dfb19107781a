#pragma once

#include "geometry/KnownArrays.h"
#include "geometry/kernels/IndexRange.h"
#include <vemo/geometry/Export.h>

#include <cstdint>
#include <string>

class vtkCellArray;
class vtkDataArray;

namespace vemo {

/// What cells must satisfy besides having every offset within the connectivity.
struct CellRules {
  /// The number of existing points.
  std::int64_t pointCount = 0;
  /// The least number of points in a cell.
  std::int64_t leastPoints = 0;
  /// Whether the connectivity may continue after the last cell.
  bool mayHaveUnusedIndices = false;
};

/// Finds cells that VTK, which trusts its input, must not be given. It passes once
/// over each large array, however many cell arrays share it, so that a small file that
/// repeats one does not cost time without limit. An array that changes between calls
/// must say so (`Modified`).
class VEMO_GEOMETRY_EXPORT CellValidator {
 public:
  /// What is wrong with the cells; empty when nothing is.
  std::string findFault(vtkCellArray& cells, const CellRules& rules);

 private:
  struct Offsets {
    /// Whether they begin at 0 and never decrease; if not, the rest is
    /// meaningless.
    bool isRising;
    std::int64_t last;
    std::int64_t shortestCell;
  };

  static Offsets summarize(vtkDataArray& offsets);
  static IndexRange findRange(vtkDataArray& connectivity, std::int64_t count);

  KnownArrays<Offsets> _offsets;
  /// Of connectivity arrays without unused indices.
  KnownArrays<IndexRange> _ranges;
};

}  // namespace vemo
