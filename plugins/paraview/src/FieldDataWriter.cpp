#include "FieldDataWriter.h"

#include "vemoview/common/VtkForms.h"

#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkNew.h>
#include <vtkStringArray.h>
#include <vtkUnsignedCharArray.h>

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

void FieldDataWriter::addColors(const char* name, const std::vector<std::uint8_t>& rgba) {
  const vtkNew<vtkUnsignedCharArray> array;
  array->SetNumberOfComponents(static_cast<int>(RGBA_CHANNELS));
  array->SetNumberOfTuples(static_cast<vtkIdType>(rgba.size() / RGBA_CHANNELS));
  std::ranges::copy(rgba, array->GetPointer(0));
  add(name, *array);
}

}  // namespace vemo
