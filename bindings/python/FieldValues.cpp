#include "FieldValues.h"

#include "Arrays.h"
#include "NodeHandle.h"
#include "Text.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <pybind11/stl.h>
#include <type_traits>

namespace py = pybind11;

namespace vemo::python {

namespace {

/// Converts a field's value, whatever its kind.
class FieldConverter {
 public:
  explicit FieldConverter(const NodeHandle& node) : _node(node) {}

  template <class T>
  requires std::is_arithmetic_v<T> py::object operator()(const T* number) const { return py::cast(*number); }
  py::object operator()(const lum::EnumerationField& field) const {
    const bool hasName = *field.value >= 0 && *field.value < field.count();
    return hasName ? py::object(py::str((*field.names)[static_cast<std::size_t>(*field.value)]))
                   : py::int_(*field.value);
  }
  py::object operator()(const std::string* text) const { return toPython(*text); }
  template <std::size_t N>
  py::object operator()(const Vector<N, double>* vector) const {
    return py::tuple(py::cast(vector->values));
  }
  py::object operator()(const lum::SharedNumbers* numbers) const { return toNumpy(*numbers); }

  template <class T>
  py::object operator()(const std::optional<T>* optional) const {
    return optional->has_value() ? (*this)(&**optional) : py::none();
  }
  template <class T>
  py::object operator()(const std::map<std::string, T>* table) const {
    py::dict converted;
    for (const auto& [name, value] : *table) {
      converted[toPython(name)] = (*this)(&value);
    }
    return converted;
  }

  py::object operator()(const vtkSmartPointer<vtkDataArray>* array) const { return toNumpy(*array); }
  py::object operator()(const vtkSmartPointer<vtkCellArray>* cells) const { return toCells(*cells); }
  py::object operator()(const lum::ArrayTable* table) const {
    py::dict converted;
    for (const auto& array : *table) {
      converted[toPython(array->GetName() != nullptr ? array->GetName() : "")] = toNumpy(array);
    }
    return converted;
  }

  py::object operator()(const lum::OwnedSlot* slot) const { return toPython(_node.graph, slot->getNode()); }
  py::object operator()(const lum::ReferenceSlot* slot) const {
    return toPython(_node.graph, slot->getNode());
  }
  py::object operator()(const lum::CollectionNode* collection) const {
    py::tuple converted(collection->getNodeCount());
    for (std::size_t i = 0; i < collection->getNodeCount(); ++i) {
      converted[i] = toPython(_node.graph, &collection->getNode(i));
    }
    return converted;
  }

 private:
  const NodeHandle& _node;
};

}  // namespace

py::object getFields(const NodeHandle& node) {
  const FieldConverter convert(node);
  py::dict fields;
  for (const lum::Field& field : node.node->getFields()) {
    fields[field.name] = std::visit(convert, field.value);
  }
  return py::reinterpret_steal<py::object>(PyDictProxy_New(fields.ptr()));
}

}  // namespace vemo::python
