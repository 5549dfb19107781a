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
#include <vector>

namespace vemo {

namespace {

constexpr std::uint64_t MOST_BYTES = std::uint64_t{256} << 20U;
constexpr std::uint64_t MOST_BYTES_PER_BYTE = 100;

/// Adds up the sizes of what nodes may share: of each array and list of numbers once, and as often as its
/// values are printed.
class SharedBytes {
 public:
  explicit SharedBytes(bool withArrays) : _withArrays(withArrays) {}

  void add(const lum::Field& field) {
    if (const auto* const list = std::get_if<lum::SharedNumbers*>(&field.value)) {
      const std::vector<double>& numbers = (*list)->get();
      count(&numbers, numbers.size() * sizeof(double));
    } else if (_withArrays) {
      addArrays(field);
    }
  }

  bool isInProportion() const { return _printed <= MOST_BYTES + MOST_BYTES_PER_BYTE * _held; }

 private:
  void addArrays(const lum::Field& field) {
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

  void add(vtkDataArray* array) {
    if (array != nullptr) {
      count(array, static_cast<std::uint64_t>(array->GetNumberOfValues()) *
                       static_cast<std::uint64_t>(array->GetDataTypeSize()));
    }
  }

  void count(const void* values, std::uint64_t bytes) {
    _printed += bytes;
    _held += _known.insert(values).second ? bytes : 0;
  }

  bool _withArrays;
  std::unordered_set<const void*> _known;
  std::uint64_t _held = 0;
  std::uint64_t _printed = 0;
};

bool areInProportion(const OpenedScene& scene, bool withArrays) {
  SharedBytes bytes(withArrays);
  for (const OpenedScene::Record& record : scene.records) {
    lum::forEachNode(*record.node, [&bytes](lum::Node& node) {
      for (const lum::Field& field : node.getFields()) {
        bytes.add(field);
      }
    });
  }
  return bytes.isInProportion();
}

}  // namespace

void requireValuesInProportion(const OpenedScene& scene, bool withArrays) {
  if (!areInProportion(scene, false)) {
    throw Failure(ExitCode::READ_ERROR,
                  "Its nodes share lists of colours: those of all nodes are out of proportion to the file");
  }
  if (withArrays && !areInProportion(scene, true)) {
    throw Failure(ExitCode::READ_ERROR,
                  "Its nodes share arrays: the values of all nodes are out of proportion to the file; --json "
                  "prints everything else");
  }
}

}  // namespace vemo
