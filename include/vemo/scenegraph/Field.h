#pragma once

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Export.h>

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

class CollectionNode;
class OwnedSlot;
class ReferenceSlot;

/// An enumeration's number: one of 0 .. count - 1.
struct EnumerationField {
  std::int32_t* value;
  std::int32_t count;
};

/// Data arrays in order, each found by its own name.
using ArrayTable = std::vector<vtkSmartPointer<vtkDataArray>>;

/// Where a field's value lives in its node. The kinds of value that a node can
/// have are these; whatever is generic over nodes (streams, printing,
/// comparison) handles each of them once.
using FieldValue =
    std::variant<bool*, std::int32_t*, std::uint32_t*, float*, double*, EnumerationField, std::string*,
                 Vector<2, double>*, Vector<3, double>*, Vector<4, double>*, std::vector<double>*,
                 std::optional<double>*, std::optional<Vector<3, double>>*,
                 std::map<std::string, Vector<3, double>>*, vtkSmartPointer<vtkDataArray>*,
                 vtkSmartPointer<vtkCellArray>*, ArrayTable*, OwnedSlot*, CollectionNode*, ReferenceSlot*>;

struct Field {
  /// Outlives the node: a literal.
  const char* name;
  FieldValue value;
};

/// A node's fields, in their order of declaration, those of the base classes
/// first. All nodes of one class have the same names and kinds.
class FieldList {
 public:
  template <class T>
  void add(const char* name, T& member) {
    _fields.push_back({name, &member});
  }

  /// A field whose values are the enumerators of `Enum`, numbered from 0 to
  /// `last` without gaps.
  template <class Enum>
  void addEnumeration(const char* name, std::int32_t& member, Enum last) {
    static_assert(std::is_enum_v<Enum>);
    _fields.push_back({name, EnumerationField{&member, static_cast<std::int32_t>(last) + 1}});
  }

  auto begin() const { return _fields.begin(); }
  auto end() const { return _fields.end(); }
  std::size_t size() const { return _fields.size(); }
  const Field& operator[](std::size_t place) const { return _fields[place]; }
  void clear() { _fields.clear(); }

 private:
  std::vector<Field> _fields;
};

}  // namespace lum
