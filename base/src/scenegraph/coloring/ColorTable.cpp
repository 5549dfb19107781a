#include "scenegraph/coloring/ColorBytes.h"
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <fmt/format.h>
#include <utility>

namespace vemo {

namespace {

std::ptrdiff_t listedColors(const lum::ColorLookupTable& table) {
  return static_cast<std::ptrdiff_t>(table.getColorValues().get().size()) / CHANNELS;
}

std::ptrdiff_t colorCount(const lum::ColorLookupTable& table) {
  return std::clamp<std::ptrdiff_t>(table.getNumColor(), 0, listedColors(table));
}

std::vector<std::uint8_t> reversedColors(std::vector<std::uint8_t> rgba) {
  std::ranges::reverse(rgba);
  for (auto color = rgba.begin(); color != rgba.end(); color += CHANNELS) {
    std::reverse(color, color + CHANNELS);
  }
  return rgba;
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

const SharedColors& defaultColors() {
  static const auto& colors = *new SharedColors(makeDefaultColors());
  return colors;
}

/// Makes a table usable, and collects what that takes.
class TableAdjuster {
 public:
  /// What follows from unknown ends of the original's range is not collected.
  TableAdjuster(ColorTable& table, const lum::ColorLookupTable& original)
      : _table(table), _original(original) {
    const std::array<bool, 2> unknownEnds = original.getUnknownEnds();
    _isRangeKnown = !unknownEnds[0] && !unknownEnds[1];
    _cannotBeLogarithmic = (!unknownEnds[0] && low() <= 0.0) || (!unknownEnds[1] && high() <= 0.0);
  }

  std::string run() {
    adjustCount();
    adjustColors();
    adjustEnds();
    adjustScale();
    if (low() == high()) {
      noteIf(_isRangeKnown,
             "has a range of one value: lower values have the first colour, higher ones the last");
    }
    return _changes;
  }

  /// Whether the colours are to be reversed.
  bool isReversed() const { return _isReversed; }

 private:
  double& low() { return _table.range[0]; }
  double& high() { return _table.range[1]; }

  void note(const std::string& change) { _changes.append(_changes.empty() ? "" : ", ").append(change); }

  void noteIf(bool isFault, const std::string& change) {
    if (isFault) {
      note(change);
    }
  }

  void adjustCount() {
    const int declared = _original.getNumColor();
    const std::ptrdiff_t listed = listedColors(_original);
    noteIf(declared != listed,
           fmt::format("lists {} colours but states {}: the lesser number counts", listed, declared));
  }

  void adjustColors() {
    if (_table.rgba.get().empty()) {
      _table.rgba = defaultColors();
      note("has no colours and gets a ramp from blue over green to red");
    }
  }

  void adjustEnds() {
    if (!std::isfinite(high() - low())) {
      _table.range = {0.0, 1.0};
      _cannotBeLogarithmic = true;
      note("has no finite range and gets the range from 0 to 1");
    } else if (low() > high()) {
      std::swap(low(), high());
      _isReversed = true;
      noteIf(_isRangeKnown, "starts at its greater value and is reversed with its colours");
    }
  }

  void adjustScale() {
    constexpr double POWERS_OF_TEN = 1e-4;
    if (!_table.isLog10 || low() > 0.0) {
      return;
    }
    const double least = high() * POWERS_OF_TEN;
    if (least > 0.0) {
      low() = least;
      noteIf(
          _cannotBeLogarithmic,
          fmt::format("is logarithmic and begins at {:g} instead, four powers of ten below its end", least));
    } else {
      _table.isLog10 = false;
      noteIf(_cannotBeLogarithmic, "is linear instead of logarithmic");
    }
  }

  ColorTable& _table;
  const lum::ColorLookupTable& _original;
  bool _isRangeKnown = true;
  /// By a known end of the range.
  bool _cannotBeLogarithmic = false;
  bool _isReversed = false;
  std::string _changes;
};

}  // namespace

UsableColorTable makeUsable(const lum::ColorLookupTable& table) {
  return UsableColorTables().make(table);
}

UsableColorTable UsableColorTables::make(const lum::ColorLookupTable& table) {
  ColorTable usable{colorsOf(table), table.getScalarRange(), table.getScaleMode() == lum::ScaleMode::LOG10};
  TableAdjuster adjuster(usable, table);
  std::string changes = adjuster.run();
  if (adjuster.isReversed()) {
    usable.rgba = reversed(usable.rgba);
  }
  return {std::move(usable), std::move(changes)};
}

SharedColors UsableColorTables::colorsOf(const lum::ColorLookupTable& table) {
  const lum::SharedNumbers& list = table.getColorValues();
  const auto [known, isNew] = _converted.try_emplace({&list.get(), colorCount(table)});
  if (isNew) {
    known->second = {list, bytesOf(list, colorCount(table))};
  }
  return known->second.colors;
}

SharedColors UsableColorTables::reversed(const SharedColors& colors) {
  const auto [known, isNew] = _reversed.try_emplace(&colors.get());
  if (isNew) {
    known->second = {colors, reversedColors(colors)};
  }
  return known->second.colors;
}

}  // namespace vemo
