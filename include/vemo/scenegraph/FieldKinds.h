#pragma once

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Enumeration.h>
#include <vemo/scenegraph/SharedNumbers.h>

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

template <class T>
class vtkSmartPointer;
class vtkCellArray;
class vtkDataArray;

namespace lum {

using vemo::Vector;
using Vector2 = Vector<2, double>;
using vemo::Vector3;
using Vector4 = Vector<4, double>;

class CollectionNode;
class OwnedSlot;
class ReferenceSlot;

/// An enumeration's number: one of 0 .. count() - 1.
struct EnumerationField {
  std::int32_t* value;
  const EnumeratorNames* names;

  std::int32_t count() const { return static_cast<std::int32_t>(names->size()); }
};

/// Data arrays in order, each found by its own name.
using ArrayTable = std::vector<vtkSmartPointer<vtkDataArray>>;

/// What the record of a node in a file has of a field: its value, the numbers
/// of arrays that are stored apart, or nothing.
enum class FieldContent : std::uint8_t { VALUE, ARRAYS, NOTHING };

/// A kind of field, by its number in files.
struct FieldKind {
  std::uint8_t number;
  FieldContent content;

  friend constexpr bool operator==(FieldKind left, FieldKind right) { return left.number == right.number; }
};

/// One kind of field: its number and the C++ type that leads to the value.
template <std::uint8_t NUMBER, class T, FieldContent CONTENT = FieldContent::VALUE>
struct FieldKindRow {
  using Type = T;
  static constexpr FieldKind KIND{NUMBER, CONTENT};
};

template <class... Rows>
struct FieldKindTable {
  using Value = std::variant<typename Rows::Type...>;

  static constexpr std::array KINDS{Rows::KIND...};

  template <class T>
  static constexpr FieldKind kindOf() {
    return KINDS[Value(std::in_place_type<T>).index()];
  }

  /// Calls visit(std::type_identity<T>()) with the type of a kind.
  template <class Visit>
  static void visitType(FieldKind kind, Visit&& visit) {
    static_cast<void>(
        ((Rows::KIND == kind && (visit(std::type_identity<typename Rows::Type>()), true)) || ...));
  }
};

/// The kinds of value that fields may have. A number is never changed nor used
/// again, nor is the form of the value in a file, which the comment describes.
/// A new kind gets the next number, and with it the format a new version: a
/// program that does not know a kind cannot skip its values.
///
/// History. Version 1: 1 to 20, with lists in records: count, 8 bytes each.
/// Version 2: lists in a table.
using FieldKinds = FieldKindTable<
    FieldKindRow<1, bool*>,                             // 0 or 1
    FieldKindRow<2, std::int32_t*>,                     // signed number
    FieldKindRow<3, std::uint32_t*>,                    // number
    FieldKindRow<4, float*>,                            // 4 bytes
    FieldKindRow<5, double*>,                           // 8 bytes
    FieldKindRow<6, EnumerationField>,                  // number
    FieldKindRow<7, std::string*>,                      // number of a string
    FieldKindRow<8, Vector2*>,                          // 2 x 8 bytes
    FieldKindRow<9, Vector3*>,                          // 3 x 8 bytes
    FieldKindRow<10, Vector4*>,                         // 4 x 8 bytes
    FieldKindRow<11, SharedNumbers*>,                   // 0; or 1 + number of a list
    FieldKindRow<12, std::optional<double>*>,           // 0; or 1 and 8 bytes
    FieldKindRow<13, std::optional<Vector3>*>,          // 0; or 1 and 3 x 8 bytes
    FieldKindRow<14, std::map<std::string, Vector3>*>,  // count; number of a string, 3 x 8 bytes each
    FieldKindRow<15, vtkSmartPointer<vtkDataArray>*, FieldContent::ARRAYS>,  // number of a chunk
    FieldKindRow<16, vtkSmartPointer<vtkCellArray>*, FieldContent::ARRAYS>,  // chunks of offsets and
                                                                             // connectivity
    FieldKindRow<17, ArrayTable*, FieldContent::ARRAYS>,                     // count, number of a chunk each
    FieldKindRow<18, OwnedSlot*, FieldContent::NOTHING>,       // the owned node names its owner's field
    FieldKindRow<19, CollectionNode*, FieldContent::NOTHING>,  // likewise
    FieldKindRow<20, ReferenceSlot*, FieldContent::NOTHING>>;  // references have a table of their own

/// The address of a field's value in its node. Whatever is generic over nodes
/// (streams, printing, comparison) handles each type once.
using FieldValue = FieldKinds::Value;

inline FieldKind kindOf(const FieldValue& value) {
  return FieldKinds::KINDS[value.index()];
}

}  // namespace lum
