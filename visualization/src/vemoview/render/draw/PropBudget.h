#pragma once

#include <vemo/render/Export.h>
#include <vemo/render/SceneRenderer.h>
#include <vemo/resolve/MeshInstance.h>

#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_set>
#include <vector>

namespace vemo {

/// How much memory drawing may take. VTK takes much for each prop, however small it is, and a small file
/// may have very many meshes of which no two can be drawn in one batch. All numbers are bytes.
struct PropLimits {
  /// About what a mapper, and an actor with its property, take.
  static constexpr std::uint64_t MAPPER = 36'000;
  static constexpr std::uint64_t ACTOR = 4'000;
  /// A batch whose props exist only while they are drawn.
  static constexpr std::uint64_t TRANSIENT = 1'500;
  /// A point and a corner of a merged mesh.
  static constexpr std::uint64_t POINT = 28;
  static constexpr std::uint64_t CORNER = 8;
  /// What an item takes in a file, besides its arrays.
  static constexpr std::uint64_t ITEM = 250;
  /// What a mesh takes before it is drawn: its nodes, its poly data and its place in a batch.
  static constexpr std::uint64_t MESH = 9'000;
  /// One with the poly data of another.
  static constexpr std::uint64_t SHARED_MESH = 3'000;

  /// What meshes and props may take together in any scene, and for each byte that it has.
  static constexpr std::uint64_t ALL = 64U << 20U;
  static constexpr std::uint64_t ALL_PER_BYTE = 10;
  /// What OpenGL needs of this for any picture.
  static constexpr std::uint64_t OPENGL = 24U << 20U;
  /// What transient batches, and props that are kept, may take if the meshes have used that up: scenes of
  /// many thousand small parts are drawn.
  static constexpr std::uint64_t LEAST_TRANSIENT = 64U << 20U;
  static constexpr std::uint64_t LEAST_KEPT = 8U << 20U;

  /// Translucent batches whose props exist only while they are drawn: they are made anew for each layer.
  static constexpr std::size_t REMADE = 1'500;

  /// What props may take that a window keeps, for speed, or a VTK program, which has no others.
  static constexpr std::uint64_t WINDOW = 1U << 30U;
  static constexpr std::uint64_t WINDOW_PER_BYTE = 8;
};

/// Estimates the memory of props before they are made.
class VEMO_RENDER_EXPORT PropBudget {
 public:
  using Batches = std::vector<std::vector<MeshInstance>>;

  explicit PropBudget(Drawn drawn) : _drawn(drawn) {}

  /// Which batches of a canvas with some clipping planes keep their props from one drawing to the next;
  /// those of the others exist only while they are drawn. Throws SceneTooLarge when all together, with
  /// those before, are out of proportion to the scene; the budget is of no use then.
  std::vector<bool> add(const Batches& batches, std::size_t clipPlanes);

  /// Of meshes that are not merged, all of whose props are kept, each with its item's name. Throws
  /// SceneTooLarge as add().
  void addKept(const std::vector<MeshInstance>& meshes, std::size_t clipPlanes);

 private:
  /// What meshes have in common that share a mapper.
  using Look = std::tuple<vtkSmartPointer<vtkPolyData>, Appearance, std::shared_ptr<const ColorTable>,
                          std::string, ScalarLocation>;
  struct Cost {
    std::uint64_t bytes;
    /// The one whose mapper it has; nothing if it is shared with no other.
    std::optional<Look> look;
  };

  void addContent(const MeshInstance& mesh);
  Cost costOf(const std::vector<MeshInstance>& batch, std::size_t clipPlanes) const;
  Cost costOfProps(const MeshInstance& mesh, bool isMerged, std::size_t clipPlanes) const;
  std::uint64_t leftByMeshes() const;
  std::uint64_t mostOfKept() const;
  bool keep(const std::vector<MeshInstance>& batch, std::size_t clipPlanes);

  Drawn _drawn;
  std::uint64_t _content = 0;
  /// What they take before they are drawn.
  std::uint64_t _meshes = 0;
  std::uint64_t _kept = 0;
  std::uint64_t _transient = 0;
  /// Translucent batches that are not kept.
  std::size_t _remade = 0;
  std::unordered_set<const void*> _arrays;
  /// Kept, so that no other has the address of one.
  std::set<vtkSmartPointer<vtkPolyData>> _geometries;
  std::set<Look> _looks;
};

}  // namespace vemo
