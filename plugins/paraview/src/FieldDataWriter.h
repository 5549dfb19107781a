#pragma once

#include <span>
#include <string>
#include <vector>

class vtkAbstractArray;
class vtkFieldData;

namespace vemo {

/// Adds small arrays to the field data of a data object.
class FieldDataWriter {
 public:
  explicit FieldDataWriter(vtkFieldData& fields) : _fields(fields) {}

  void add(const char* name, double value) { add(name, std::span(&value, 1)); }
  /// One tuple.
  void add(const char* name, std::span<const double> values);
  /// A tuple for each text.
  void add(const char* name, const std::vector<std::string>& texts);
  /// Gets the name.
  void add(const char* name, vtkAbstractArray& array);

 private:
  vtkFieldData& _fields;
};

}  // namespace vemo
