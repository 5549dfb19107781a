#include "vemoview/render/resolve/ColorTable.h"

#include "vemoview/common/VtkForms.h"
#include <vemo/scenegraph/attributes/ColorLookupTable.h>

#include <vtkDataArray.h>
#include <vtkLookupTable.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <vector>

namespace vemo {

namespace {

using Range = Vector<2, double>;

/// VTK's own, for the colours of a table without a usable range.
constexpr Range DEFAULT_RANGE{0.0, 1.0};

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

std::uint8_t toByte(double value) {
  return std::isfinite(value) ? static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0))
                              : 0;
}

/// Empty when there is no table, too.
std::vector<std::uint8_t> colorsOf(const lum::ColorLookupTable* table) {
  if (table == nullptr) {
    return {};
  }
  const std::vector<double>& values = table->getColorValues();
  const auto told = static_cast<std::size_t>(std::max(table->getNumColor(), 0));
  const auto count = std::min(told, values.size() / RGBA_CHANNELS);
  std::vector<std::uint8_t> colors;
  std::transform(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count * RGBA_CHANNELS),
                 std::back_inserter(colors), toByte);
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
  Range range = table != nullptr && !colors.empty() ? table->getScalarRange() : Range{1.0, 0.0};
  if (!isUsable(range, isLog)) {
    range = isLog ? rangeAbove(values, 0.0) : Range{1.0, 0.0};
    if (!isUsable(range, isLog)) {
      isLog = false;
      range = rangeAbove(values, std::numeric_limits<double>::lowest());
    }
  }
  auto result = makeVtkLookupTable(colors, isUsable(range, isLog) ? range : DEFAULT_RANGE, isLog);
  if (colors.empty()) {
    setDefaultColors(*result);
  }
  return result;
}

}  // namespace vemo
