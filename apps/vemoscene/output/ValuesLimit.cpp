#include "output/ValuesLimit.h"

#include "output/ExitCode.h"
#include <vemo/import/OpenScene.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Traversal.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <cstdint>
#include <fmt/format.h>
#include <unordered_set>

namespace vemo {

namespace {

constexpr std::uint64_t MOST_BYTES = std::uint64_t{256} << 20U;
constexpr std::uint64_t MOST_BYTES_PER_BYTE = 100;

/// Adds up the sizes of arrays: of each once, and of each as often as it is printed.
class ArrayBytes {
 public:
  void add(const lum::Field& field) {
    if (const auto* const array = std::get_if<vtkSmartPointer<vtkDataArray>*>(&field.value)) {
      add(**array);
    } else if (const auto* const table = std::get_if<lum::ArrayTable*>(&field.value)) {
      for (const auto& each : **table) {
        add(each);
      }
    } else if (const auto* const cells = std::get_if<vtkSmartPointer<vtkCellArray>*>(&field.value);
               cells != nullptr && **cells != nullptr) {
      add((**cells)->GetOffsetsArray());
      add((**cells)->GetConnectivityArray());
    }
  }

  bool isInProportion() const { return _printed <= MOST_BYTES + MOST_BYTES_PER_BYTE * _held; }

 private:
  void add(vtkDataArray* array) {
    if (array != nullptr) {
      const auto bytes = static_cast<std::uint64_t>(array->GetNumberOfValues()) *
                         static_cast<std::uint64_t>(array->GetDataTypeSize());
      _printed += bytes;
      _held += _known.insert(array).second ? bytes : 0;
    }
  }

  std::unordered_set<const vtkDataArray*> _known;
  std::uint64_t _held = 0;
  std::uint64_t _printed = 0;
};

}  // namespace

void requireValuesInProportion(const OpenedScene& scene) {
  ArrayBytes bytes;
  for (const OpenedScene::Record& record : scene.records) {
    lum::forEachNode(*record.node, [&bytes](lum::Node& node) {
      for (const lum::Field& field : node.getFields()) {
        bytes.add(field);
      }
    });
  }
  if (!bytes.isInProportion()) {
    throw Failure(ExitCode::READ_ERROR,
                  "Its nodes share arrays: the values of all nodes are out of proportion to the file; --json "
                  "prints everything else");
  }
}

}  // namespace vemo
