#include "FieldDataWriter.h"

#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkNew.h>
#include <vtkStringArray.h>

#include <algorithm>

namespace vemo {

void FieldDataWriter::add(const char* name, vtkAbstractArray& array) {
  array.SetName(name);
  _fields.AddArray(&array);
}

void FieldDataWriter::add(const char* name, std::span<const double> values) {
  const vtkNew<vtkDoubleArray> array;
  array->SetNumberOfComponents(static_cast<int>(values.size()));
  array->InsertNextTuple(values.data());
  add(name, *array);
}

void FieldDataWriter::add(const char* name, const std::vector<std::string>& texts) {
  const vtkNew<vtkStringArray> array;
  std::ranges::for_each(texts, [&](const std::string& text) { array->InsertNextValue(text); });
  add(name, *array);
}

}  // namespace vemo
