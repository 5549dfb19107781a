#include "scenegraph/ArrayType.h"
#include "scenegraph/io/codec/ChunkIO.h"
#include "scenegraph/io/codec/ChunkRow.h"
#include <vemo/scenegraph/Field.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/io/ArrayPool.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <string>
#include <unordered_map>

namespace lum {

namespace {

// Smaller arrays are not worth their place in the table.
constexpr std::uint64_t MIN_BYTES = 1024;

bool isWorthSharing(const io::ChunkRow& row) {
  return row.bytes() >= MIN_BYTES;
}

/// What arrays that may be shared have in common.
std::string keyOf(const io::ChunkRow& row, const char* name) {
  const std::uint64_t numbers[] = {static_cast<std::uint64_t>(row.type), row.components, row.tuples,
                                   row.hash};
  std::string key(reinterpret_cast<const char*>(numbers), sizeof numbers);
  // An array without a name differs from one with an empty name.
  return name != nullptr ? key.append("=").append(name) : key;
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

class ArrayPool::Table : public std::unordered_map<std::string, vtkSmartPointer<vtkDataArray>> {};

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
  if (isWorthSharing(row)) {
    _table->try_emplace(keyOf(row, array.GetName()), &array);
  }
}

vtkDataArray* ArrayPool::find(const io::ChunkRow& row, const char* name) const {
  if (!isWorthSharing(row)) {
    return nullptr;
  }
  const auto found = _table->find(keyOf(row, name));
  return found != _table->end() ? found->second.Get() : nullptr;
}

}  // namespace lum
