#include "scenegraph/ArrayType.h"
#include "scenegraph/io/codec/ChunkIO.h"
#include "scenegraph/io/codec/ChunkRow.h"
#include <vemo/scenegraph/Field.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/io/ArrayPool.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace lum {

namespace {

/// What arrays that may be shared have in common, as one number: scenes may have a great many small arrays.
std::uint64_t keyOf(const io::ChunkRow& row, std::string_view name) {
  const std::uint64_t parts[] = {static_cast<std::uint64_t>(row.type), row.components, row.tuples, row.hash,
                                 io::hashOf(name)};
  return io::hashOf({reinterpret_cast<const char*>(parts), sizeof parts});
}

std::string_view textOf(const char* name) {
  return name != nullptr ? name : "";
}

/// An array without a name differs from one with an empty name.
bool isNamed(vtkDataArray& array, const char* name) {
  return (array.GetName() == nullptr) == (name == nullptr) && textOf(array.GetName()) == textOf(name);
}

bool hasShapeOf(vtkDataArray& array, const io::ChunkRow& row) {
  const io::ChunkRow own = io::rowOf(array);
  return own.type == row.type && own.components == row.components && own.tuples == row.tuples;
}

template <class Visit>
void visitArrays(const Field& field, Visit&& visit) {
  if (const auto* array = std::get_if<vtkSmartPointer<vtkDataArray>*>(&field.value)) {
    visit((*array)->Get());
  } else if (const auto* table = std::get_if<ArrayTable*>(&field.value)) {
    for (const auto& each : **table) {
      visit(each.Get());
    }
  } else if (const auto* cells = std::get_if<vtkSmartPointer<vtkCellArray>*>(&field.value)) {
    if (vtkCellArray* const held = (*cells)->Get()) {
      visit(held->GetOffsetsArray());
      visit(held->GetConnectivityArray());
    }
  }
}

}  // namespace

class ArrayPool::Table : public std::unordered_map<std::uint64_t, vtkSmartPointer<vtkDataArray>> {};

ArrayPool::ArrayPool() : _table(std::make_unique<Table>()) {}
ArrayPool::~ArrayPool() = default;

void ArrayPool::addAll(Node& root) {
  forEachNode(root, [this](Node& node) {
    for (const Field& field : node.getFields()) {
      visitArrays(field, [this](vtkDataArray* array) {
        if (array != nullptr && arrayTypeOf(*array)) {
          io::ChunkRow row = io::rowOf(*array);
          row.hash = io::hashOf(io::bytesOf(*array));
          add(*array, row);
        }
      });
    }
  });
}

void ArrayPool::add(vtkDataArray& array, const io::ChunkRow& row) {
  _table->try_emplace(keyOf(row, textOf(array.GetName())), &array);
}

vtkDataArray* ArrayPool::find(const io::ChunkRow& row, const char* name) const {
  const auto found = _table->find(keyOf(row, textOf(name)));
  const bool isFound =
      found != _table->end() && isNamed(*found->second, name) && hasShapeOf(*found->second, row);
  return isFound ? found->second.Get() : nullptr;
}

}  // namespace lum
