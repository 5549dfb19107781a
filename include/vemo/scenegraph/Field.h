#pragma once

#include <vemo/scenegraph/Export.h>
#include <vemo/scenegraph/FieldKinds.h>

#include <cstddef>
#include <vector>

namespace lum {

struct Field {
  /// Outlives the node: a literal.
  const char* name;
  FieldValue value;
};

/// A node's fields, in their order of declaration, those of the base classes
/// first. All nodes of one class have the same names and kinds.
class FieldList {
 public:
  void add(const char* name, const FieldValue& value) {
    if (_fields.capacity() == 0) {
      _fields.reserve(USUAL_SIZE);
    }
    _fields.push_back({name, value});
  }

  auto begin() const { return _fields.begin(); }
  auto end() const { return _fields.end(); }
  std::size_t size() const { return _fields.size(); }
  const Field& operator[](std::size_t index) const { return _fields[index]; }
  void clear() { _fields.clear(); }

 private:
  /// Few classes have more.
  static constexpr std::size_t USUAL_SIZE = 12;

  std::vector<Field> _fields;
};

}  // namespace lum
