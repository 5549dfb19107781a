#include "vemoview/common/VtkForms.h"

#include <vtkLogLookupTable.h>
#include <vtkLookupTable.h>
#include <vtkPlane.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vemo {

namespace {

/// Puts the value of an empty range in the middle of a colour. Where two colours meet, rounding would
/// choose one over points and the other over cells: of an even number it is the higher of the two. The range
/// is so wide that rounding to single precision does not lead to another colour.
Vector<2, double> widened(const Vector<2, double>& range, vtkIdType colors) {
  constexpr double ROUNDING = 1e-6;
  if (range[0] < range[1]) {
    return range;
  }
  const double rounding = ROUNDING * std::max(1.0, static_cast<double>(colors) / 8.0);
  const double margin = std::max(std::abs(range[0]) * rounding, double{std::numeric_limits<float>::min()});
  const vtkIdType middle = colors / 2;
  const double share = (static_cast<double>(middle) + 0.5) / static_cast<double>(colors);
  const double low = range[0] - 2.0 * margin * share;
  return {low, low + 2.0 * margin};
}

vtkSmartPointer<vtkLookupTable> makeTable(vtkUnsignedCharArray& colors, vtkIdType count,
                                          const Vector<2, double>& range, bool isLog10) {
  auto table = isLog10 ? vtkSmartPointer<vtkLookupTable>(vtkSmartPointer<vtkLogLookupTable>::New())
                       : vtkSmartPointer<vtkLookupTable>::New();
  table->SetRange(range.data());
  table->SetTable(&colors);
  table->SetNumberOfTableValues(count);
  return table;
}

vtkIdType countColors(std::span<const std::uint8_t> rgba) {
  return static_cast<vtkIdType>(rgba.size() / RGBA_CHANNELS);
}

}  // namespace

vtkSmartPointer<vtkUnsignedCharArray> makeVtkColors(std::span<const std::uint8_t> rgba) {
  auto colors = vtkSmartPointer<vtkUnsignedCharArray>::New();
  colors->SetNumberOfComponents(static_cast<int>(RGBA_CHANNELS));
  colors->SetNumberOfTuples(countColors(rgba));
  std::ranges::copy(rgba.first(static_cast<std::size_t>(colors->GetNumberOfValues())), colors->GetPointer(0));
  return colors;
}

vtkUnsignedCharArray& VtkColors::get(const SharedColors& colors) {
  const auto [known, isNew] = _made.try_emplace(&colors.get());
  if (isNew) {
    known->second = {colors, makeVtkColors(colors.get())};
  }
  return *known->second.form;
}

vtkSmartPointer<vtkLookupTable> makeVtkLookupTable(std::span<const std::uint8_t> rgba,
                                                   const Vector<2, double>& range, bool isLog10) {
  return makeTable(*makeVtkColors(rgba), countColors(rgba), range, isLog10);
}

vtkSmartPointer<vtkLookupTable> makeVtkLookupTable(const ColorTable& table, vtkUnsignedCharArray& colors) {
  const vtkIdType count = countColors(table.rgba.get());
  return makeTable(colors, count, widened(table.range, count), table.isLog10);
}

vtkSmartPointer<vtkLookupTable> makeVtkLookupTable(const ColorTable& table) {
  return makeVtkLookupTable(table, *makeVtkColors(table.rgba.get()));
}

void setVtkPlane(vtkPlane& plane, const Vector3& origin, const Vector3& normal) {
  plane.SetOrigin(origin.data());
  plane.SetNormal(normal.data());
}

}  // namespace vemo
