#pragma once

#include <vemo/render/Export.h>
#include <vemo/resolve/MeshInstance.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <tuple>
#include <unordered_set>
#include <vector>

namespace vemo {

/// How much memory the props of meshes may take. VTK takes much for each of them, however small it is,
/// and a small file may have very many meshes of which no two can be drawn in one batch. All numbers
/// are bytes.
struct PropLimits {
  /// About what a mapper, and an actor with its property, take.
  static constexpr std::uint64_t MAPPER = 32'000;
  static constexpr std::uint64_t ACTOR = 3'500;
  /// A point and a corner of a merged mesh.
  static constexpr std::uint64_t POINT = 28;
  static constexpr std::uint64_t CORNER = 8;
  /// What an item takes in a file, besides its arrays.
  static constexpr std::uint64_t ITEM = 250;

  /// Of any scene, and for each byte that it has.
  static constexpr std::uint64_t PROPS = 1U << 30U;
  static constexpr std::uint64_t PROPS_PER_BYTE = 8;
};

/// Estimates the memory of props before they are made.
class VEMO_RENDER_EXPORT PropBudget {
 public:
  using Batches = std::vector<std::vector<MeshInstance>>;

  /// The props of batches of a canvas with some clipping planes. Throws SceneTooLarge when they, and
  /// those before, are out of proportion to the scene; the batches then do not count.
  void add(const Batches& batches, std::size_t clipPlanes);

 private:
  /// What meshes have in common that share a mapper.
  using Look = std::tuple<const vtkPolyData*, Appearance, const ColorTable*, std::string, ScalarLocation>;

  void addContent(const MeshInstance& mesh);
  std::uint64_t costOf(const std::vector<MeshInstance>& batch, std::size_t clipPlanes);
  std::uint64_t costOfProps(const MeshInstance& mesh, bool isMerged, std::size_t clipPlanes);

  std::uint64_t _content = 0;
  std::uint64_t _props = 0;
  std::unordered_set<const void*> _arrays;
  std::set<Look> _looks;
};

}  // namespace vemo
