#pragma once

#include <vtkFloatArray.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace vemo {

/// Points from their coordinates, and cells from their points' numbers.
struct Cells {
  using List = std::vector<std::vector<vtkIdType>>;
  List verts{}, lines{}, polys{}, strips{};
};
vtkSmartPointer<vtkPolyData> makePolyData(const std::vector<std::array<float, 3>>& points,
                                          const Cells& cells);

/// Points in the plane z = 0 from their coordinates x and y, one after the other.
std::vector<std::array<float, 3>> flat(const std::vector<float>& coordinates);

/// A rectangle in the plane z.
vtkSmartPointer<vtkPolyData> makeRectangle(float left, float right, float bottom, float top, float z = 0);

/// A vertex, a star of radius 1 in the plane z = 0.7 x - 0.3 y, and triangles that fill its notches. The
/// normal that its corners give the star is opposite to that of the triangles.
vtkSmartPointer<vtkPolyData> makeStarInPlate();

/// A data array of the values of all its tuples, one after the other.
template <class Array = vtkFloatArray>
vtkSmartPointer<Array> makeArray(const std::string& name,
                                 const std::vector<typename Array::ValueType>& values, int components = 1) {
  auto array = vtkSmartPointer<Array>::New();
  array->SetName(name.c_str());
  array->SetNumberOfComponents(components);
  array->SetNumberOfValues(static_cast<vtkIdType>(values.size()));
  std::ranges::copy(values, array->GetPointer(0));
  return array;
}

}  // namespace vemo
