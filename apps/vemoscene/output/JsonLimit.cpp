#include "output/JsonLimit.h"

#include "output/ExitCode.h"
#include "scenegraph/inspect/NodePaths.h"
#include <vemo/import/OpenScene.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/Traversal.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace vemo {

namespace {

constexpr std::uint64_t MOST_BYTES = std::uint64_t{256} << 20U;
constexpr std::uint64_t MOST_BYTES_PER_BYTE = 100;

/// Calls the action with each array in a value, and its bytes.
template <class Action>
void forEachArray(const lum::FieldValue& value, const Action& action) {
  const auto visit = [&action](vtkDataArray* array) {
    if (array != nullptr) {
      action(array, static_cast<std::uint64_t>(array->GetNumberOfValues()) *
                        static_cast<std::uint64_t>(array->GetDataTypeSize()));
    }
  };
  if (const auto* const array = std::get_if<vtkSmartPointer<vtkDataArray>*>(&value)) {
    visit(**array);
  } else if (const auto* const table = std::get_if<lum::ArrayTable*>(&value)) {
    std::ranges::for_each(**table, visit);
  } else if (const auto* const cells = std::get_if<vtkSmartPointer<vtkCellArray>*>(&value);
             cells != nullptr && **cells != nullptr) {
    visit((**cells)->GetOffsetsArray());
    visit((**cells)->GetConnectivityArray());
  }
}

/// The bytes of what nodes may share, each once.
std::uint64_t bytesHeld(const OpenedScene& scene) {
  std::uint64_t bytes = 0;
  std::unordered_set<const vtkDataArray*> known;
  for (const OpenedScene::Record& record : scene.records) {
    lum::forEachNode(*record.node, [&](const lum::Node& node) {
      bytes += node.getName().size();
      for (const lum::Field& field : node.getFields()) {
        forEachArray(field.value, [&](const vtkDataArray* array, std::uint64_t size) {
          bytes += known.insert(array).second ? size : 0;
        });
      }
    });
  }
  return bytes;
}

/// The bytes of arrays and paths of a record, as often as they are printed.
class PrintedBytes {
 public:
  PrintedBytes(const lum::Node& root, bool withValues) : _paths(root), _withValues(withValues) {}

  std::uint64_t ofNode(const lum::Node& node) {
    std::uint64_t bytes = 0;
    for (const lum::Field& field : node.getFields()) {
      if (_withValues) {
        forEachArray(field.value, [&bytes](const vtkDataArray*, std::uint64_t size) { bytes += size; });
      }
      bytes += ofReference(node, field.value);
    }
    return bytes;
  }

 private:
  /// A list that another node has is printed as a reference to that one.
  std::uint64_t ofReference(const lum::Node& node, const lum::FieldValue& value) {
    if (const auto* const slot = std::get_if<lum::ReferenceSlot*>(&value)) {
      return (*slot)->getNode() != nullptr ? sizeOfPath(*(*slot)->getNode()) : 0;
    }
    if (const auto* const list = std::get_if<lum::SharedNumbers*>(&value)) {
      const auto [first, isNew] = _lists.emplace(&(*list)->get(), &node);
      return isNew ? 0 : sizeOfPath(*first->second);
    }
    return 0;
  }

  std::size_t sizeOfPath(const lum::Node& node) { return _paths.getPath(node).value_or("").size(); }

  lum::NodePaths _paths;
  bool _withValues;
  std::unordered_map<const std::vector<double>*, const lum::Node*> _lists;
};

}  // namespace

void requireJsonInProportion(const OpenedScene& scene, bool withValues) {
  const std::uint64_t most = MOST_BYTES + MOST_BYTES_PER_BYTE * bytesHeld(scene);
  std::uint64_t bytes = 0;
  for (const OpenedScene::Record& record : scene.records) {
    PrintedBytes printed(*record.node, withValues);
    lum::forEachNode(*record.node, [&](const lum::Node& node) {
      bytes += printed.ofNode(node);
      if (bytes > most) {
        throw Failure(ExitCode::READ_ERROR,
                      "Its nodes share arrays or names so often that their JSON is out of proportion to the "
                      "file; without --values, no values of arrays are printed");
      }
    });
  }
}

}  // namespace vemo
