#include "vemoview/render/vtk/LookupTables.h"

#include "vemoview/common/VtkForms.h"

#include <vtkLookupTable.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vemo {

namespace {

/// VTK gives a range of one value no middle. It is widened by more than the
/// rounding of a float.
Vector<2, double> widened(const Vector<2, double>& range) {
  constexpr double ROUNDING = 1e-6;
  if (range[0] < range[1]) {
    return range;
  }
  const double margin = std::max(std::abs(range[0]) * ROUNDING, double{std::numeric_limits<float>::min()});
  return {range[0] - margin, range[0] + margin};
}

}  // namespace

vtkLookupTable* LookupTables::get(const std::shared_ptr<const ColorTable>& table) {
  auto& result = _tables[table];
  if (result == nullptr) {
    result = makeVtkLookupTable(table->rgba, widened(table->range), table->isLog10);
  }
  return result;
}

}  // namespace vemo
