#include "vemoview/render/draw/BatchGroups.h"

#include "vemoview/render/draw/MeshScalars.h"

#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <compare>
#include <cstddef>
#include <map>
#include <numeric>
#include <utility>

namespace vemo {

namespace {

/// A mesh with more points or cells than this gets its own batch.
constexpr vtkIdType SMALL = 10000;
/// A batch with at least this many points is full.
constexpr vtkIdType FULL = 200000;
/// Fewer meshes are not worth merging.
constexpr std::size_t FEW = 16;

/// Values at points are interpolated over a face before they are mapped to
/// colours: a batch needs the values themselves, of one type, and one table.
struct PointScalarsKey {
  const ColorTable* table = nullptr;
  int type = 0;
  int components = 0;

  auto operator<=>(const PointScalarsKey&) const = default;
};

/// The properties that the meshes of a batch have in common.
struct BatchKey {
  Appearance appearance;
  const InstanceTransforms* transforms = nullptr;
  bool hasCellScalars = false;
  PointScalarsKey pointScalars;
  int pointType = 0;
  bool hasPointNormals = false;
  bool hasCellNormals = false;

  auto operator<=>(const BatchKey&) const = default;
};

BatchKey keyOf(const MeshInstance& mesh) {
  vtkPolyData& geometry = *mesh.geometry;
  BatchKey key{mesh.appearance,
               mesh.transforms.get(),
               hasCellScalars(mesh),
               {},
               geometry.GetPoints()->GetDataType(),
               geometry.GetPointData()->GetNormals() != nullptr,
               geometry.GetCellData()->GetNormals() != nullptr};
  if (hasPointScalars(mesh)) {
    vtkDataArray& scalars = *scalarsOf(mesh);
    key.pointScalars = {mesh.scalars->table.get(), scalars.GetDataType(), scalars.GetNumberOfComponents()};
  }
  return key;
}

bool isSmall(const MeshInstance& mesh) {
  return std::max(mesh.geometry->GetNumberOfPoints(), mesh.geometry->GetNumberOfCells()) <= SMALL;
}

/// The indices of the small meshes, by batch.
std::vector<std::vector<std::size_t>> groupSmallMeshes(const std::vector<MeshInstance>& meshes) {
  struct Group {
    std::size_t index;
    vtkIdType points;
  };
  std::vector<std::vector<std::size_t>> groups;
  std::map<BatchKey, Group> open;
  for (std::size_t i = 0; i < meshes.size(); ++i) {
    if (!isSmall(meshes[i])) {
      continue;
    }
    const auto [entry, isNew] = open.try_emplace(keyOf(meshes[i]), Group{groups.size(), 0});
    Group& group = entry->second;
    if (isNew || group.points >= FULL) {
      group = {groups.size(), 0};
      groups.emplace_back();
    }
    groups[group.index].push_back(i);
    group.points += meshes[i].geometry->GetNumberOfPoints();
  }
  return groups;
}

}  // namespace

std::vector<std::vector<MeshInstance>> groupIntoBatches(std::vector<MeshInstance> meshes) {
  // The first of the group that each mesh is in.
  std::vector<std::size_t> leaders(meshes.size());
  std::iota(leaders.begin(), leaders.end(), std::size_t{0});
  for (const auto& group : groupSmallMeshes(meshes)) {
    if (group.size() >= FEW) {
      for (const std::size_t member : group) {
        leaders[member] = group.front();
      }
    }
  }
  std::vector<std::vector<MeshInstance>> result;
  std::vector<std::size_t> indices(meshes.size());
  for (std::size_t i = 0; i < meshes.size(); ++i) {
    if (leaders[i] == i) {
      indices[i] = result.size();
      result.emplace_back();
    }
    result[indices[leaders[i]]].push_back(std::move(meshes[i]));
  }
  return result;
}

}  // namespace vemo
