#include "scenegraph/ArrayType.h"
#include "scenegraph/inspect/ArrayRange.h"
#include <vemo/scenegraph/inspect/ArrayText.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <vtkDataArray.h>

#include <array>
#include <fmt/format.h>

namespace lum {

std::string describeType(vtkDataArray& array) {
  const int components = array.GetNumberOfComponents();
  const char* const name = arrayTypeName(array);
  return components == 1 ? name : fmt::format("{} x {}", name, components);
}

namespace {

std::string describe(const ValueRange& range) {
  return range.least <= range.greatest
             ? fmt::format("{} .. {}", describeNumber(range.least), describeNumber(range.greatest))
             : "none finite";
}

}  // namespace

std::string describeRange(vtkDataArray& array, int component) {
  std::array<double, 2> range{1.0, 0.0};
  array.GetFiniteRange(range.data(), component);
  return describe({range[0], range[1]});
}

std::string describeRange(vtkDataArray& array) {
  switch (array.GetNumberOfComponents()) {
    case 1:
      return describe(finiteRanges(array)[0]);
    case 3: {
      const auto ranges = finiteRanges(array);
      return fmt::format("x {}, y {}, z {}", describe(ranges[0]), describe(ranges[1]), describe(ranges[2]));
    }
    default:
      return "length " + describeRange(array, TUPLE_LENGTH);
  }
}

}  // namespace lum
