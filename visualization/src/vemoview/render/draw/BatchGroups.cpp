#include "vemoview/render/draw/BatchGroups.h"

#include "geometry/Bounds.h"
#include "vemoview/render/draw/MeshScalars.h"
#include "vemoview/resolve/drawables/InstanceBounds.h"

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
#include <optional>
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

/// What a mesh covers, and with what. Lines on faces are drawn a little nearer than all else.
struct Cover {
  Box box;
  bool hasFaces = false;
  bool hasOnFaces = false;
  bool hasOthers = false;
};

Cover coverOf(const MeshInstance& mesh) {
  const Appearance& appearance = mesh.appearance;
  const bool isSurface = appearance.kind == Appearance::Kind::SURFACE;
  Cover cover;
  cover.hasFaces = isSurface && appearance.hasFaces;
  cover.hasOnFaces = appearance.isOfSurface || (isSurface && (appearance.hasEdges || appearance.hasContour));
  cover.hasOthers = !isSurface && !appearance.isOfSurface;
  const Box bounds = boundsOf(*mesh.geometry);
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    cover.box.add(instanceBounds(transform, bounds));
  });
  return cover;
}

/// Whether parts of two meshes may be in the same place, where the one that is drawn last is seen.
bool mayCoincide(const Cover& a, const Cover& b) {
  int sharedSides = 0;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const double low = std::max(a.box.low[axis], b.box.low[axis]);
    const double high = std::min(a.box.high[axis], b.box.high[axis]);
    if (low > high) {
      return false;
    }
    sharedSides += low < high ? 1 : 0;
  }
  // Faces that have just an edge in common do not cover each other.
  const bool areFacesShared = a.hasFaces && b.hasFaces && sharedSides >= 2;
  return areFacesShared || (a.hasOnFaces && b.hasOnFaces) || (a.hasOthers && (b.hasOthers || b.hasFaces)) ||
         (a.hasFaces && b.hasOthers);
}

/// The order in which the meshes of a scene are drawn.
class DrawingOrder {
 public:
  explicit DrawingOrder(const std::vector<MeshInstance>& meshes) : _meshes(meshes), _covers(meshes.size()) {}

  /// The next mesh is in a group, or in none.
  void add(std::optional<std::size_t> group) {
    if (_runs.empty() || _runs.back().group != group) {
      _runs.push_back({group, _count});
    }
    ++_count;
  }

  /// Whether the next mesh can be drawn as early as the first one of its group: before the later
  /// ones of other groups. False if these are too many to look at, which costs a further batch only.
  bool canBeAdvanced(std::size_t group, std::size_t first) {
    constexpr std::size_t MOST_TESTS = 500;
    std::size_t tests = 0;
    std::size_t end = _count;
    for (auto run = _runs.rbegin(); run != _runs.rend() && end > first; end = run->first, ++run) {
      for (std::size_t i = std::max(run->first, first); run->group != group && i < end; ++i) {
        if (++tests > MOST_TESTS || mayCoincide(cover(i), cover(_count))) {
          return false;
        }
      }
      ++tests;
    }
    return true;
  }

 private:
  /// Meshes one after the other, of one group or of none.
  struct Run {
    std::optional<std::size_t> group;
    std::size_t first;
  };

  const Cover& cover(std::size_t mesh) {
    if (!_covers[mesh]) {
      _covers[mesh] = coverOf(_meshes[mesh]);
    }
    return *_covers[mesh];
  }

  const std::vector<MeshInstance>& _meshes;
  std::vector<std::optional<Cover>> _covers;
  std::vector<Run> _runs;
  std::size_t _count = 0;
};

/// The indices of the small meshes, by batch.
std::vector<std::vector<std::size_t>> groupSmallMeshes(const std::vector<MeshInstance>& meshes) {
  struct Group {
    std::size_t index;
    vtkIdType points;
  };
  std::vector<std::vector<std::size_t>> groups;
  std::map<BatchKey, Group> open;
  DrawingOrder order(meshes);
  for (std::size_t i = 0; i < meshes.size(); ++i) {
    if (!isSmall(meshes[i])) {
      order.add(std::nullopt);
      continue;
    }
    const auto [entry, isNew] = open.try_emplace(keyOf(meshes[i]), Group{groups.size(), 0});
    Group& group = entry->second;
    if (isNew || group.points >= FULL || !order.canBeAdvanced(group.index, groups[group.index].front())) {
      group = {groups.size(), 0};
      groups.emplace_back();
    }
    groups[group.index].push_back(i);
    order.add(group.index);
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
