#include "scenegraph/ArrayType.h"

#include <vtkCharArray.h>
#include <vtkDataArray.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkIdTypeArray.h>
#include <vtkShortArray.h>
#include <vtkSignedCharArray.h>
#include <vtkSmartPointer.h>
#include <vtkTypeInt32Array.h>
#include <vtkTypeInt64Array.h>
#include <vtkTypeUInt64Array.h>
#include <vtkUnsignedCharArray.h>
#include <vtkUnsignedIntArray.h>
#include <vtkUnsignedShortArray.h>

#include <algorithm>
#include <array>

namespace lum {

namespace {

struct Row {
  ArrayType type;
  const char* name;
  std::size_t size;
  int vtkType;
  vtkDataArray* (*make)();
};

template <class Array>
vtkDataArray* make() {
  return Array::New();
}

// Integers of 32 and 64 bits have the classes that cell arrays use, so that
// these can adopt them.
constexpr std::array ROWS{
    Row{ArrayType::INT8, "int8", 1, VTK_SIGNED_CHAR, make<vtkSignedCharArray>},
    Row{ArrayType::UINT8, "uint8", 1, VTK_UNSIGNED_CHAR, make<vtkUnsignedCharArray>},
    Row{ArrayType::INT16, "int16", 2, VTK_SHORT, make<vtkShortArray>},
    Row{ArrayType::UINT16, "uint16", 2, VTK_UNSIGNED_SHORT, make<vtkUnsignedShortArray>},
    Row{ArrayType::INT32, "int32", 4, VTK_INT, make<vtkTypeInt32Array>},
    Row{ArrayType::UINT32, "uint32", 4, VTK_UNSIGNED_INT, make<vtkUnsignedIntArray>},
    Row{ArrayType::INT64, "int64", 8, VTK_TYPE_INT64, make<vtkTypeInt64Array>},
    Row{ArrayType::UINT64, "uint64", 8, VTK_TYPE_UINT64, make<vtkTypeUInt64Array>},
    Row{ArrayType::FLOAT32, "float32", 4, VTK_FLOAT, make<vtkFloatArray>},
    Row{ArrayType::FLOAT64, "float64", 8, VTK_DOUBLE, make<vtkDoubleArray>},
    Row{ArrayType::ID, "int64", 8, VTK_ID_TYPE, make<vtkIdTypeArray>},
    Row{ArrayType::CHAR, "int8", 1, VTK_CHAR, make<vtkCharArray>},
};
static_assert(sizeof(vtkIdType) == 8);

const Row& rowOf(ArrayType type) {
  return ROWS[static_cast<std::size_t>(type) - 1];
}

/// C++ has several types of the same width.
int commonType(int vtkType) {
  switch (vtkType) {
    case VTK_LONG:
    case VTK_LONG_LONG:
      return VTK_TYPE_INT64;
    case VTK_UNSIGNED_LONG:
    case VTK_UNSIGNED_LONG_LONG:
      return VTK_TYPE_UINT64;
    default:
      return vtkType;
  }
}

/// Null for bits and the like.
const Row* findRow(vtkDataArray& array) {
  const auto* const row = std::ranges::find(ROWS, commonType(array.GetDataType()), &Row::vtkType);
  return row != ROWS.end() ? row : nullptr;
}

}  // namespace

std::optional<ArrayType> arrayTypeOf(vtkDataArray& array) {
  const Row* const row = array.HasStandardMemoryLayout() ? findRow(array) : nullptr;
  return row != nullptr ? std::optional(row->type) : std::nullopt;
}

std::optional<ArrayType> arrayTypeFromNumber(std::uint64_t number) {
  if (number == 0 || number > ROWS.size()) {
    return std::nullopt;
  }
  return ROWS[number - 1].type;
}

const char* arrayTypeName(vtkDataArray& array) {
  const Row* const row = findRow(array);
  return row != nullptr ? row->name : array.GetDataTypeAsString();
}

std::size_t arrayTypeSize(ArrayType type) {
  return rowOf(type).size;
}

vtkSmartPointer<vtkDataArray> makeArray(ArrayType type) {
  return vtkSmartPointer<vtkDataArray>::Take(rowOf(type).make());
}

}  // namespace lum
