#include "vemoview/resolve/mesh/ColorTableResolver.h"

#include <vemo/scenegraph/coloring/ColorLookupTable.h>

#include <vtkDataArray.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

namespace vemo {

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
  const auto declared = static_cast<std::size_t>(std::max(table->getNumColor(), 0));
  const auto count = std::min(declared, values.size() / CHANNELS);
  std::vector<std::uint8_t> colors;
  std::transform(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count * CHANNELS),
                 std::back_inserter(colors), toByte);
  return colors;
}

/// The hues of a rainbow, the low end blue.
std::vector<std::uint8_t> makeDefaultColors() {
  vtkNew<vtkLookupTable> table;
  table->SetNumberOfTableValues(256);
  table->SetHueRange(2.0 / 3.0, 0.0);
  table->SetRampToLinear();
  table->ForceBuild();
  const std::uint8_t* const first = table->GetPointer(0);
  return {first, first + table->GetTable()->GetNumberOfValues()};
}

const std::vector<std::uint8_t>& defaultColors() {
  static const std::vector<std::uint8_t> colors = makeDefaultColors();
  return colors;
}

}  // namespace

ColorTable resolveColorTable(const lum::ColorLookupTable* table, vtkDataArray& values) {
  bool isLog10 = table != nullptr && table->getScaleMode() == lum::ScaleMode::LOG10;
  auto colors = colorsOf(table);
  Range range = table != nullptr && !colors.empty() ? table->getScalarRange() : Range{1.0, 0.0};
  if (!isUsable(range, isLog10)) {
    range = isLog10 ? rangeAbove(values, 0.0) : Range{1.0, 0.0};
    if (!isUsable(range, isLog10)) {
      isLog10 = false;
      range = rangeAbove(values, std::numeric_limits<double>::lowest());
    }
  }
  ColorTable result;
  result.rgba = std::move(colors);
  if (result.rgba.empty()) {
    result.rgba = defaultColors();
  }
  result.range = isUsable(range, isLog10) ? range : result.range;
  result.isLog10 = isLog10;
  return result;
}

}  // namespace vemo
