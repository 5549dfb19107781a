#include "vemoview/window/ValueText.h"

#include "vemoview/window/ItemText.h"
#include <vemo/scenegraph/inspect/ArrayText.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <vtkDataArray.h>
#include <vtkVariant.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <string>

namespace vemo {

namespace {

std::string valueText(vtkDataArray& array, vtkIdType tuple, int component) {
  const double number = array.GetComponent(tuple, component);
  switch (array.GetDataType()) {
    case VTK_FLOAT:
      return fmt::format("{}", static_cast<float>(number));
    case VTK_DOUBLE:
      return fmt::format("{}", number);
    default: {
      // A double cannot hold every 64-bit integer.
      const vtkVariant value = array.GetVariantValue(tuple * array.GetNumberOfComponents() + component);
      return array.GetDataTypeMin() < 0 ? std::to_string(value.ToTypeInt64())
                                        : std::to_string(value.ToTypeUInt64());
    }
  }
}

double lengthOf(vtkDataArray& array, vtkIdType tuple) {
  double sum = 0.0;
  for (int i = 0; i < array.GetNumberOfComponents(); ++i) {
    const double value = array.GetComponent(tuple, i);
    sum += value * value;
  }
  return std::sqrt(sum);
}

}  // namespace

QString tupleText(vtkDataArray& array, vtkIdType tuple) {
  constexpr int MAX_COMPONENTS = 16;
  constexpr int VECTOR_COMPONENTS = 3;
  if (tuple < 0 || tuple >= array.GetNumberOfTuples()) {
    return "none";
  }
  const int components = array.GetNumberOfComponents();
  if (components == 1) {
    return QString::fromStdString(valueText(array, tuple, 0));
  }
  std::string text;
  for (int i = 0; i < std::min(components, MAX_COMPONENTS); ++i) {
    text += (i == 0 ? "" : ", ") + valueText(array, tuple, i);
  }
  text = "(" + text + (components > MAX_COMPONENTS ? ", ...)" : ")");
  if (components <= VECTOR_COMPONENTS) {
    text += ", length " + lum::describeNumber(lengthOf(array, tuple));
  }
  return QString::fromStdString(text);
}

QString rangeText(vtkDataArray& array, int component) {
  return QString::fromStdString(lum::describeRange(array, component));
}

QString rangeText(vtkDataArray& array) {
  const bool isVector = array.GetNumberOfComponents() > 1;
  return isVector ? "length " + rangeText(array, lum::TUPLE_LENGTH) : rangeText(array, 0);
}

QString nameOf(vtkDataArray& array) {
  const char* const name = array.GetName();
  return name == nullptr || *name == '\0' ? QString("(no name)") : toText(name);
}

}  // namespace vemo
