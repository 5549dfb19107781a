#include "vemoview/render/draw/BatchGroups.h"

#include "geometry/Bounds.h"
#include "vemoview/render/draw/DrawnAppearance.h"
#include "vemoview/render/draw/MeshScalars.h"
#include "vemoview/resolve/drawables/InstanceBounds.h"

#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <numeric>
#include <optional>
#include <unordered_map>
#include <utility>

namespace vemo {

namespace {

/// A mesh with more points or cells than this gets its own batch.
constexpr vtkIdType SMALL = 10000;
/// The same, for a mesh that shares its geometry with others.
constexpr vtkIdType VERY_SMALL = 32;
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
  /// Cells of other tables would become translucent as well.
  bool isTranslucent = false;
  PointScalarsKey pointScalars;
  int pointType = 0;
  bool hasPointNormals = false;
  bool hasCellNormals = false;

  auto operator<=>(const BatchKey&) const = default;
};

BatchKey keyOf(const MeshInstance& mesh) {
  vtkPolyData& geometry = *mesh.geometry;
  BatchKey key{drawnAppearance(mesh.appearance),
               mesh.transforms.get(),
               hasCellScalars(mesh),
               isTranslucent(mesh),
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

/// Which meshes are merged: small ones, but not those that share their geometry with so many others
/// that the copies would be large: OpenGL has it once. Of very few points, they take less than props.
class SmallMeshes {
 public:
  explicit SmallMeshes(const std::vector<MeshInstance>& meshes) {
    for (const MeshInstance& mesh : meshes) {
      ++_uses[mesh.geometry];
    }
  }

  bool has(const MeshInstance& mesh) const {
    const vtkIdType most = std::max(VERY_SMALL, SMALL / _uses.at(mesh.geometry));
    return std::max(mesh.geometry->GetNumberOfPoints(), mesh.geometry->GetNumberOfCells()) <= most;
  }

 private:
  std::unordered_map<const vtkPolyData*, int> _uses;
};

/// What a mesh covers, and with what. Lines and points are drawn a little nearer than faces.
struct Cover {
  Box box;
  bool hasFaces = false;
  bool hasLines = false;
};

Cover coverOf(const MeshInstance& mesh) {
  const Appearance& appearance = mesh.appearance;
  const bool isSurface = appearance.kind == Appearance::Kind::SURFACE;
  Cover cover;
  cover.hasFaces = isSurface && appearance.hasFaces;
  cover.hasLines = !isSurface || appearance.hasEdges || appearance.hasContour;
  const Box bounds = boundsOfCells(*mesh.geometry);
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
  return areFacesShared || (a.hasLines && b.hasLines);
}

std::vector<Cover> coversOf(const std::vector<MeshInstance>& meshes) {
  std::vector<Cover> covers;
  covers.reserve(meshes.size());
  for (const MeshInstance& mesh : meshes) {
    covers.push_back(coverOf(mesh));
  }
  return covers;
}

/// Of most boxes that are not points.
double usualSide(const std::vector<Cover>& covers) {
  std::vector<double> sides;
  for (const Cover& cover : covers) {
    if (const double side = cover.box.longestSide(); side > 0.0 && std::isfinite(side)) {
      sides.push_back(side);
    }
  }
  if (sides.empty()) {
    return 1.0;
  }
  const auto middle = sides.begin() + static_cast<std::ptrdiff_t>(sides.size() / 2);
  std::ranges::nth_element(sides, middle);
  return *middle;
}

/// Meshes one after the other, of one group or of none.
struct MeshRun {
  std::optional<std::size_t> group;
  std::vector<std::size_t> members;
};

using Runs = std::vector<MeshRun>;

void addTo(Runs& runs, std::optional<std::size_t> group, std::size_t mesh) {
  if (runs.empty() || runs.back().group != group) {
    runs.push_back({group, {}});
  }
  runs.back().members.push_back(mesh);
}

/// The meshes in the order in which they are drawn, each in the cells of a grid that it touches.
/// Meshes that may coincide have a cell in common, wherever they are in the order.
class DrawingOrder {
 public:
  explicit DrawingOrder(const std::vector<MeshInstance>& meshes)
      : _covers(coversOf(meshes)), _cellSide(usualSide(_covers)) {}

  /// The next mesh is in a group, or in none.
  void add(std::optional<std::size_t> group) {
    const CellRange range = rangeOf(_covers[_count].box);
    if (range.isWide()) {
      addTo(_wide, group, _count);
    } else {
      range.forEach([&](const Cell& cell) {
        addTo(_cells[cell], group, _count);
        return true;
      });
    }
    addTo(_all, group, _count);
    ++_count;
  }

  /// Whether the next mesh can be drawn as early as the first one of its group: before the later
  /// ones of other groups. False if these are too many to look at, which costs a further batch only.
  bool canBeAdvanced(std::size_t group, std::size_t first) const {
    const CellRange range = rangeOf(_covers[_count].box);
    std::size_t tests = 0;
    if (range.isWide()) {
      return isFree(_all, group, first, tests);
    }
    return isFree(_wide, group, first, tests) && range.forEach([&](const Cell& cell) {
      const auto found = _cells.find(cell);
      return found == _cells.end() || isFree(found->second, group, first, tests);
    });
  }

 private:
  using Cell = std::array<std::int64_t, 3>;

  /// The cells that a box touches.
  struct CellRange {
    Cell low;
    Cell high;

    /// Too many to be listed.
    bool isWide() const {
      constexpr double MOST_CELLS = 64.0;
      double cells = 1.0;
      for (std::size_t axis = 0; axis < 3; ++axis) {
        cells *= static_cast<double>(high[axis] - low[axis] + 1);
      }
      return cells > MOST_CELLS;
    }

    /// Calls visit(cell) until it returns false; returns whether it never did.
    template <class Visit>
    bool forEach(Visit&& visit) const {
      for (std::int64_t x = low[0]; x <= high[0]; ++x) {
        for (std::int64_t y = low[1]; y <= high[1]; ++y) {
          for (std::int64_t z = low[2]; z <= high[2]; ++z) {
            if (!visit(Cell{x, y, z})) {
              return false;
            }
          }
        }
      }
      return true;
    }
  };

  std::int64_t indexOf(double coordinate) const {
    // What is farther away has the last cells in common.
    constexpr double LAST = 1e15;
    return static_cast<std::int64_t>(std::clamp(std::floor(coordinate / _cellSide), -LAST, LAST));
  }

  CellRange rangeOf(const Box& box) const {
    CellRange range{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
      range.low[axis] = indexOf(box.low[axis]);
      range.high[axis] = indexOf(box.high[axis]);
    }
    return range;
  }

  /// Whether the next mesh coincides with none of other groups from the first one on.
  bool isFree(const Runs& runs, std::size_t group, std::size_t first, std::size_t& tests) const {
    constexpr std::size_t MOST_TESTS = 500;
    for (auto run = runs.rbegin(); run != runs.rend() && run->members.back() >= first; ++run) {
      ++tests;
      for (auto i = run->members.rbegin(); run->group != group && i != run->members.rend() && *i >= first;
           ++i) {
        if (++tests > MOST_TESTS || mayCoincide(_covers[*i], _covers[_count])) {
          return false;
        }
      }
    }
    return true;
  }

  std::vector<Cover> _covers;
  double _cellSide;
  std::map<Cell, Runs> _cells;
  /// Those of too many cells.
  Runs _wide;
  Runs _all;
  std::size_t _count = 0;
};

/// The indices of the small meshes, by batch.
std::vector<std::vector<std::size_t>> groupSmallMeshes(const std::vector<MeshInstance>& meshes) {
  struct Group {
    std::size_t index;
    vtkIdType points;
  };
  std::vector<std::vector<std::size_t>> groups;
  const SmallMeshes small(meshes);
  const auto isSmall = [&small](const MeshInstance& mesh) { return small.has(mesh); };
  if (std::ranges::count_if(meshes, isSmall) < static_cast<std::ptrdiff_t>(FEW)) {
    return groups;
  }
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
  std::vector<std::size_t> sizes(meshes.size());
  for (const std::size_t leader : leaders) {
    ++sizes[leader];
  }
  std::vector<std::vector<MeshInstance>> result;
  std::vector<std::size_t> indices(meshes.size());
  for (std::size_t i = 0; i < meshes.size(); ++i) {
    if (leaders[i] == i) {
      indices[i] = result.size();
      result.emplace_back().reserve(sizes[i]);
    }
    result[indices[leaders[i]]].push_back(std::move(meshes[i]));
  }
  return result;
}

}  // namespace vemo
