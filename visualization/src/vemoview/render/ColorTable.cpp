#include "vemoview/render/ColorTable.h"

#include "scenegraph/attributes/ColorLookupTable.h"

#include <vtkDataArray.h>
#include <vtkDataArrayRange.h>
#include <vtkLogLookupTable.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Range = Vector<2, double>;

constexpr std::size_t CHANNELS = 4;

bool isUsable(const Range& range, bool isLog) {
  return std::isfinite(range[0]) && std::isfinite(range[1]) && range[0] <= range[1] &&
         (!isLog || range[0] > 0.0);
}

/// From the least to the greatest finite first component above a bound. When
/// there is none, the first value is above the second.
Range rangeAbove(vtkDataArray& values, double bound) {
  Range range{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
  for (vtkIdType i = 0; i < values.GetNumberOfTuples(); ++i) {
    const double value = values.GetComponent(i, 0);
    if (std::isfinite(value) && value > bound) {
      range = {std::min(range[0], value), std::max(range[1], value)};
    }
  }
  return range;
}

unsigned char toByte(double value) {
  return std::isfinite(value) ? static_cast<unsigned char>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0))
                              : 0;
}

/// Null when the table has no colours.
vtkSmartPointer<vtkUnsignedCharArray> colorsOf(const lum::ColorLookupTable* table) {
  const auto told = table != nullptr && table->getNumColor() > 0 ? table->getNumColor() : 0;
  const auto held = table != nullptr ? table->getColorValues().size() / CHANNELS : 0;
  const std::size_t count = std::min(static_cast<std::size_t>(told), held);
  if (count == 0) {
    return nullptr;
  }
  auto colors = vtkSmartPointer<vtkUnsignedCharArray>::New();
  colors->SetNumberOfComponents(CHANNELS);
  colors->SetNumberOfTuples(static_cast<vtkIdType>(count));
  std::transform(table->getColorValues().begin(),
                 table->getColorValues().begin() + static_cast<std::ptrdiff_t>(count * CHANNELS),
                 colors->GetPointer(0), toByte);
  return colors;
}

/// The hues of a rainbow, the low end blue.
void setDefaultColors(vtkLookupTable& table) {
  table.SetNumberOfTableValues(256);
  table.SetHueRange(2.0 / 3.0, 0.0);
  table.SetRampToLinear();
  table.ForceBuild();
}

}  // namespace

vtkSmartPointer<vtkLookupTable> makeLookupTable(const lum::ColorLookupTable* table, vtkDataArray& values) {
  bool isLog = table != nullptr && table->getScaleMode() == lum::ScaleMode::LOG10;
  const auto colors = colorsOf(table);
  Range range = colors != nullptr ? table->getScalarRange() : Range{1.0, 0.0};
  if (!isUsable(range, isLog)) {
    range = isLog ? rangeAbove(values, 0.0) : Range{1.0, 0.0};
    if (!isUsable(range, isLog)) {
      isLog = false;
      range = rangeAbove(values, std::numeric_limits<double>::lowest());
    }
  }
  auto result = isLog ? vtkSmartPointer<vtkLookupTable>(vtkSmartPointer<vtkLogLookupTable>::New())
                      : vtkSmartPointer<vtkLookupTable>::New();
  if (isUsable(range, isLog)) {
    result->SetRange(range.data());
  }
  if (colors != nullptr) {
    result->SetTable(colors);
    result->SetNumberOfTableValues(colors->GetNumberOfTuples());
  } else {
    setDefaultColors(*result);
  }
  return result;
}
