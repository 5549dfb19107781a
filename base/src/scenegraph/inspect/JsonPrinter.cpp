#include "scenegraph/ArrayType.h"
#include "scenegraph/inspect/ArrayValues.h"
#include "scenegraph/inspect/NodePaths.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/inspect/JsonPrinter.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <string>
#include <unordered_map>

namespace lum {

namespace {

template <class T>
bool isFinite(T value) {
  if constexpr (std::is_floating_point_v<T>) {
    return std::isfinite(value);
  } else {
    return true;
  }
}

/// The indices of the least and the greatest of an array's finite values; the
/// number of values when there are none.
struct Extremes {
  std::size_t least;
  std::size_t greatest;
};

template <class T>
Extremes findExtremes(std::span<const T> values) {
  Extremes result{values.size(), values.size()};
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!isFinite(values[i])) {
      continue;
    }
    if (result.least == values.size()) {
      result = {i, i};
    } else if (values[i] < values[result.least]) {
      result.least = i;
    } else if (values[i] > values[result.greatest]) {
      result.greatest = i;
    }
  }
  return result;
}

/// Those of large arrays, each searched once, however many nodes share it.
using KnownExtremes = std::unordered_map<vtkDataArray*, Extremes>;
constexpr std::size_t LARGE = 1024;

/// Writes a field's value, whatever its kind.
class FieldPrinter {
 public:
  FieldPrinter(JsonWriter& json, JsonPrinter::Values values, NodePaths& paths, KnownExtremes& extremes)
      : _json(json), _values(values), _paths(paths), _extremes(extremes) {}

  template <class T>
  requires std::is_arithmetic_v<T>
  void operator()(T* number) const { _json.value(*number); }
  void operator()(const EnumerationField& field) const { _json.value(*field.value); }
  void operator()(std::string* text) const { _json.value(*text); }
  template <std::size_t N>
  void operator()(Vector<N, double>* vector) const {
    _json.values(std::span<const double>(vector->values));
  }
  void operator()(SharedNumbers* numbers) const { _json.values(std::span<const double>(numbers->get())); }

  template <class T>
  void operator()(std::optional<T>* optional) const {
    if (optional->has_value()) {
      (*this)(&**optional);
    } else {
      _json.null();
    }
  }

  template <class T>
  void operator()(std::map<std::string, T>* table) const {
    _json.beginObject();
    for (auto& [name, value] : *table) {
      _json.key(name);
      (*this)(&value);
    }
    _json.endObject();
  }

  void operator()(vtkSmartPointer<vtkDataArray>* array) const { print(*array); }

  void operator()(vtkSmartPointer<vtkCellArray>* cells) const {
    if (*cells == nullptr) {
      _json.null();
      return;
    }
    _json.beginObject();
    _json.key("cells");
    _json.value((*cells)->GetNumberOfCells());
    _json.key("offsets");
    print((*cells)->GetOffsetsArray());
    _json.key("connectivity");
    print((*cells)->GetConnectivityArray());
    _json.endObject();
  }

  void operator()(ArrayTable* table) const {
    _json.beginObject();
    for (const auto& array : *table) {
      _json.key(array->GetName() != nullptr ? array->GetName() : "");
      print(array);
    }
    _json.endObject();
  }

  void operator()(ReferenceSlot* slot) const {
    if (slot->getNode() == nullptr) {
      _json.null();
      return;
    }
    _json.beginObject(JsonWriter::Layout::ONE_LINE);
    _json.key("reference");
    _paths.print(_json, *slot->getNode());
    _json.endObject();
  }

  // What a node owns is among its nodes.
  void operator()(OwnedSlot*) const {}
  void operator()(CollectionNode*) const {}

 private:
  void print(vtkDataArray* array) const {
    if (array == nullptr) {
      _json.null();
      return;
    }
    visitValues(*array, [&](auto values) { print(*array, values); });
  }

  template <class T>
  void print(vtkDataArray& array, std::span<const T> values) const {
    _json.beginObject(JsonWriter::Layout::ONE_LINE);
    _json.key("type");
    _json.value(arrayTypeName(array));
    _json.key("components");
    _json.value(array.GetNumberOfComponents());
    _json.key("tuples");
    _json.value(array.GetNumberOfTuples());
    _json.key("range");
    printRange(array, values);
    if (_values == JsonPrinter::Values::SHOWN) {
      _json.key("values");
      _json.values(values);
    }
    _json.endObject();
  }

  template <class T>
  void printRange(vtkDataArray& array, std::span<const T> values) const {
    const Extremes extremes = extremesOf(array, values);
    if (extremes.least < values.size()) {
      const T range[] = {values[extremes.least], values[extremes.greatest]};
      _json.values(std::span<const T>(range));
    } else {
      _json.null();
    }
  }

  template <class T>
  Extremes extremesOf(vtkDataArray& array, std::span<const T> values) const {
    if (values.size() < LARGE) {
      return findExtremes(values);
    }
    const auto known = _extremes.find(&array);
    return known != _extremes.end() ? known->second
                                    : _extremes.emplace(&array, findExtremes(values)).first->second;
  }

  JsonWriter& _json;
  JsonPrinter::Values _values;
  NodePaths& _paths;
  KnownExtremes& _extremes;
};

bool isOwnedKind(const FieldValue& value) {
  return std::holds_alternative<OwnedSlot*>(value) || std::holds_alternative<CollectionNode*>(value);
}

/// All of a node but what it owns.
void beginNode(JsonWriter& json, const FieldPrinter& printField, const Node& node) {
  json.beginObject();
  json.key("class");
  json.value(node.className());
  json.key("name");
  json.value(node.getName());
  if (node.getQualifiedName().has_value()) {
    json.key("qualifiedName");
    json.value(*node.getQualifiedName());
  }
  json.key("fields");
  json.beginObject();
  for (const Field& field : node.getFields()) {
    if (!isOwnedKind(field.value)) {
      json.key(field.name);
      std::visit(printField, field.value);
    }
  }
  json.endObject();
  json.key("nodes");
  json.beginArray();
}

}  // namespace

void JsonPrinter::print(const Node& root) {
  struct Level {
    std::vector<Node*> dependents;
    std::size_t next = 0;
  };
  NodePaths paths(root);
  KnownExtremes extremes;
  const FieldPrinter printField(_json, _values, paths, extremes);
  beginNode(_json, printField, root);
  std::vector<Level> levels{{root.getDependents()}};
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.next == level.dependents.size()) {
      _json.endArray();
      _json.endObject();
      levels.pop_back();
      continue;
    }
    const Node& node = *level.dependents[level.next++];
    beginNode(_json, printField, node);
    levels.push_back({node.getDependents()});
  }
}

}  // namespace lum
