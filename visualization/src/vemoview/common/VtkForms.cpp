#include "vemoview/common/VtkForms.h"

#include <vtkLogLookupTable.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkPlane.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vemo {

namespace {

Vector<2, double> widened(const Vector<2, double>& range) {
  constexpr double ROUNDING = 1e-6;
  if (range[0] < range[1]) {
    return range;
  }
  const double margin = std::max(std::abs(range[0]) * ROUNDING, double{std::numeric_limits<float>::min()});
  return {range[0] - margin, range[0] + margin};
}

}  // namespace

vtkSmartPointer<vtkLookupTable> makeVtkLookupTable(std::span<const std::uint8_t> rgba,
                                                   const Vector<2, double>& range, bool isLog10) {
  vtkNew<vtkUnsignedCharArray> colors;
  colors->SetNumberOfComponents(static_cast<int>(RGBA_CHANNELS));
  colors->SetNumberOfTuples(static_cast<vtkIdType>(rgba.size() / RGBA_CHANNELS));
  std::ranges::copy(rgba.first(static_cast<std::size_t>(colors->GetNumberOfValues())), colors->GetPointer(0));
  auto table = isLog10 ? vtkSmartPointer<vtkLookupTable>(vtkSmartPointer<vtkLogLookupTable>::New())
                       : vtkSmartPointer<vtkLookupTable>::New();
  table->SetRange(range.data());
  table->SetTable(colors);
  table->SetNumberOfTableValues(colors->GetNumberOfTuples());
  return table;
}

vtkSmartPointer<vtkLookupTable> makeVtkLookupTable(const ColorTable& table) {
  return makeVtkLookupTable(table.rgba, widened(table.range), table.isLog10);
}

void setVtkPlane(vtkPlane& plane, const Vector3& origin, const Vector3& normal) {
  plane.SetOrigin(origin.data());
  plane.SetNormal(normal.data());
}

}  // namespace vemo
