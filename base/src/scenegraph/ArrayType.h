#pragma once

#include <vemo/scenegraph/Export.h>

#include <cstddef>
#include <cstdint>
#include <optional>

class vtkDataArray;
template <class T>
class vtkSmartPointer;

namespace lum {

/// The types of array that nodes may hold. The numbers are stored in files:
/// never change or reuse them.
enum class ArrayType : std::uint8_t {
  INT8 = 1,
  UINT8 = 2,
  INT16 = 3,
  UINT16 = 4,
  INT32 = 5,
  UINT32 = 6,
  INT64 = 7,
  UINT64 = 8,
  FLOAT32 = 9,
  FLOAT64 = 10,
  /// 64-bit integers that VTK calls ids.
  ID = 11,
  /// 8-bit integers that VTK calls characters.
  CHAR = 12,
};

/// The type of an array; nothing for one that cannot be stored: bits, and
/// arrays whose values are not contiguous in memory.
std::optional<ArrayType> arrayTypeOf(vtkDataArray& array);

/// A type's number in a file; nothing when there is none of that number.
std::optional<ArrayType> arrayTypeFromNumber(std::uint64_t number);

/// "float32" and the like; "int64" for ids, "int8" for characters. VTK's name
/// for a type that is not in this table.
VEMO_SCENEGRAPH_EXPORT const char* arrayTypeName(vtkDataArray& array);

/// The bytes of one value.
std::size_t arrayTypeSize(ArrayType type);

/// A new, empty array.
vtkSmartPointer<vtkDataArray> makeArray(ArrayType type);

}  // namespace lum
