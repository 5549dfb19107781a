#pragma once

#include <vtkFloatArray.h>
#include <vtkObjectFactory.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

namespace vemo {

/// Counts how often arrays are asked for their names.
class AskedArray final : public vtkFloatArray {
 public:
  static AskedArray* New() { VTK_STANDARD_NEW_BODY(AskedArray); }
  vtkTypeMacro(AskedArray, vtkFloatArray)

  char* GetName() override {
    ++questions;
    return vtkFloatArray::GetName();
  }

  static inline int questions = 0;
};

/// Arrays of different names.
inline std::vector<vtkSmartPointer<AskedArray>> makeAskedArrays(int count, vtkIdType tuples) {
  std::vector<vtkSmartPointer<AskedArray>> arrays;
  for (int i = 0; i < count; ++i) {
    auto& array = arrays.emplace_back(vtkSmartPointer<AskedArray>::New());
    array->SetName(std::to_string(i).c_str());
    array->SetNumberOfTuples(tuples);
    array->Fill(0.0);
  }
  return arrays;
}

}  // namespace vemo
