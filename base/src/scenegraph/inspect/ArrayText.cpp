#include "scenegraph/ArrayType.h"
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

std::string describeRange(vtkDataArray& array, int component) {
  std::array<double, 2> range{1.0, 0.0};
  array.GetFiniteRange(range.data(), component);
  return range[0] <= range[1] ? fmt::format("{} .. {}", describeNumber(range[0]), describeNumber(range[1]))
                              : "none finite";
}

std::string describeRange(vtkDataArray& array) {
  switch (array.GetNumberOfComponents()) {
    case 1:
      return describeRange(array, 0);
    case 3:
      return fmt::format("x {}, y {}, z {}", describeRange(array, 0), describeRange(array, 1),
                         describeRange(array, 2));
    default:
      return "length " + describeRange(array, TUPLE_LENGTH);
  }
}

}  // namespace lum
