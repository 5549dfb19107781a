#pragma once

#include <vemo/scenegraph/Field.h>

#include <cstdint>

namespace lum::io {

/// The kinds of field, by their numbers in files. A number is never changed
/// nor used again, nor is what follows it in a file. A new kind gets the next
/// number, and with it the format a new version: who does not know a kind
/// cannot pass over its values.
///
/// History. Version 1: 1 to 20.
enum class FieldKind : std::uint8_t {
  BOOLEAN = 1,            ///< 0 or 1
  INT32 = 2,              ///< signed number
  UINT32 = 3,             ///< number
  FLOAT32 = 4,            ///< 4 bytes
  FLOAT64 = 5,            ///< 8 bytes
  ENUMERATION = 6,        ///< number
  TEXT = 7,               ///< number of a string
  VECTOR2 = 8,            ///< 2 x 8 bytes
  VECTOR3 = 9,            ///< 3 x 8 bytes
  VECTOR4 = 10,           ///< 4 x 8 bytes
  NUMBERS = 11,           ///< count, 8 bytes each
  OPTIONAL_FLOAT64 = 12,  ///< 0; or 1 and 8 bytes
  OPTIONAL_VECTOR3 = 13,  ///< 0; or 1 and 3 x 8 bytes
  KEYED_VECTOR3 = 14,     ///< count, number of a string and 3 x 8 bytes each
  ARRAY = 15,             ///< number of a chunk
  CELLS = 16,             ///< numbers of the chunks of offsets and connectivity
  ARRAY_TABLE = 17,       ///< count, number of a chunk each
  OWNED = 18,             ///< nothing: the owned node says where it belongs
  NODES = 19,             ///< nothing, likewise
  REFERENCE = 20,         ///< nothing: references have a table of their own
};

constexpr FieldKind kindOf(const bool*) {
  return FieldKind::BOOLEAN;
}
constexpr FieldKind kindOf(const std::int32_t*) {
  return FieldKind::INT32;
}
constexpr FieldKind kindOf(const std::uint32_t*) {
  return FieldKind::UINT32;
}
constexpr FieldKind kindOf(const float*) {
  return FieldKind::FLOAT32;
}
constexpr FieldKind kindOf(const double*) {
  return FieldKind::FLOAT64;
}
constexpr FieldKind kindOf(const EnumerationField&) {
  return FieldKind::ENUMERATION;
}
constexpr FieldKind kindOf(const std::string*) {
  return FieldKind::TEXT;
}
constexpr FieldKind kindOf(const Vector<2, double>*) {
  return FieldKind::VECTOR2;
}
constexpr FieldKind kindOf(const Vector<3, double>*) {
  return FieldKind::VECTOR3;
}
constexpr FieldKind kindOf(const Vector<4, double>*) {
  return FieldKind::VECTOR4;
}
constexpr FieldKind kindOf(const std::vector<double>*) {
  return FieldKind::NUMBERS;
}
constexpr FieldKind kindOf(const std::optional<double>*) {
  return FieldKind::OPTIONAL_FLOAT64;
}
constexpr FieldKind kindOf(const std::optional<Vector<3, double>>*) {
  return FieldKind::OPTIONAL_VECTOR3;
}
constexpr FieldKind kindOf(const std::map<std::string, Vector<3, double>>*) {
  return FieldKind::KEYED_VECTOR3;
}
constexpr FieldKind kindOf(const vtkSmartPointer<vtkDataArray>*) {
  return FieldKind::ARRAY;
}
constexpr FieldKind kindOf(const vtkSmartPointer<vtkCellArray>*) {
  return FieldKind::CELLS;
}
constexpr FieldKind kindOf(const ArrayTable*) {
  return FieldKind::ARRAY_TABLE;
}
constexpr FieldKind kindOf(const OwnedSlot*) {
  return FieldKind::OWNED;
}
constexpr FieldKind kindOf(const CollectionNode*) {
  return FieldKind::NODES;
}
constexpr FieldKind kindOf(const ReferenceSlot*) {
  return FieldKind::REFERENCE;
}

inline FieldKind kindOf(const FieldValue& value) {
  return std::visit([](const auto& alternative) { return kindOf(alternative); }, value);
}

constexpr std::uint64_t LAST_FIELD_KIND = 20;

/// Whether a node's record has values of this kind.
constexpr bool hasValue(FieldKind kind) {
  return kind < FieldKind::OWNED;
}

constexpr bool isArrays(FieldKind kind) {
  return kind >= FieldKind::ARRAY && kind <= FieldKind::ARRAY_TABLE;
}

}  // namespace lum::io
