#include "vemoview/import/scene/PartList.h"

#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkNew.h>
#include <vtkPolyData.h>

#include <algorithm>

namespace vemo {

namespace {

/// Numbers arrays in the order in which they are first seen.
template <class Key>
class ArrayNumbers {
 public:
  explicit ArrayNumbers(SceneParts& parts) : _parts(parts) {}

  /// @param size returns the bytes of a new array
  template <class Size>
  std::size_t of(const Key& key, Size&& size) {
    const auto [place, isNew] = _numbers.try_emplace(key, _parts.arrayBytes.size());
    if (isNew) {
      _parts.arrayBytes.push_back(size());
    }
    return place->second;
  }

 private:
  SceneParts& _parts;
  std::map<Key, std::size_t> _numbers;
};

std::vector<vtkSmartPointer<vtkObject>> arraysOf(const lum::PolyDataNode& node) {
  std::vector<vtkSmartPointer<vtkObject>> arrays{node.getPoints()};
  for (const CellKindTraits& kind : CELL_KINDS) {
    arrays.emplace_back(node.getCells(kind.kind));
  }
  for (const auto& table : {node.getNodeDataArrays(), node.getCellDataArrays()}) {
    arrays.insert(arrays.end(), table.begin(), table.end());
  }
  std::erase(arrays, nullptr);
  return arrays;
}

std::uint64_t bytesOf(vtkObject& array) {
  constexpr std::uint64_t UNIT = 1024;
  if (auto* const cells = vtkCellArray::SafeDownCast(&array)) {
    return cells->GetActualMemorySize() * UNIT;
  }
  return vtkDataArray::SafeDownCast(&array)->GetActualMemorySize() * UNIT;
}

}  // namespace

SceneParts listParts(const SceneFileReader& reader, const std::map<int, lum::PolyDataNode*>& nodesByElement) {
  SceneParts parts;
  ArrayNumbers<std::string> numbers(parts);
  for (const SceneFileReader::Part& read : reader.getParts()) {
    const auto node = nodesByElement.find(read.element);
    SceneParts::Part& part = parts.parts.emplace_back();
    part.node = node != nodesByElement.end() ? node->second : nullptr;
    for (const std::string& entry : read.entries) {
      part.arrays.push_back(
          numbers.of(entry, [&] { return static_cast<std::uint64_t>(reader.getArchive().getSize(entry)); }));
    }
  }
  return parts;
}

SceneParts keepParts(lum::Node& graph, const PartFilter& wants) {
  SceneParts parts;
  // Keeps the arrays, so that none takes the place of another.
  ArrayNumbers<vtkSmartPointer<vtkObject>> numbers(parts);
  const vtkNew<vtkPolyData> nothing;
  lum::forEachNodeOf<lum::PolyDataNode>(graph, [&](lum::PolyDataNode& node) {
    SceneParts::Part part{lum::Ptr<lum::PolyDataNode>(&node), {}};
    for (const auto& array : arraysOf(node)) {
      part.arrays.push_back(numbers.of(array, [&] { return bytesOf(*array); }));
    }
    if (!wants(parts.parts.size())) {
      node.setPolyData(nothing);
    }
    parts.parts.push_back(std::move(part));
  });
  return parts;
}

void filterParts(lum::SDBReader& reader, const PartFilter& wants, SceneParts& parts) {
  for (const lum::SDBReader::Array& array : reader.getArrays()) {
    parts.arrayBytes.push_back(array.bytes);
  }
  reader.setArrayFilter([&wants, &parts](lum::Node& node, std::span<const std::size_t> arrays) {
    auto* const geometry = dynamic_cast<lum::PolyDataNode*>(&node);
    if (geometry == nullptr) {
      return true;
    }
    parts.parts.push_back({lum::Ptr<lum::PolyDataNode>(geometry), {arrays.begin(), arrays.end()}});
    return wants(parts.parts.size() - 1);
  });
}

}  // namespace vemo
