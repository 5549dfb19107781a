#pragma once

#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/Export.h>
#include <vemo/resolve/Pick.h>
#include <vemo/resolve/PickRay.h>

#include <limits>
#include <optional>
#include <span>

namespace vemo {

struct MeshInstance;

/// Finds what a pick ray hits first. Faces are hit where they are; lines and
/// points also a few pixels beside them, and before the faces that they lie on.
/// Of positions at the same distance, that of the mesh tested last is found.
class VEMO_RESOLVE_EXPORT Picker {
 public:
  /// The planes apply to meshes whose appearance is clipped.
  Picker(const PickRay& ray, std::span<const ClipPlane> clipPlanes);

  /// Tests all instances of a mesh. Its node must still hold the arrays that the
  /// mesh was made of.
  void test(const MeshInstance& mesh);

  const std::optional<Pick>& getNearest() const { return _nearest; }

 private:
  PickRay _ray;
  RayInterval _whole;
  /// The part of the ray that the clipping planes keep.
  RayInterval _unclipped;
  std::optional<Pick> _nearest;
  double _nearestRank = std::numeric_limits<double>::infinity();
};

}  // namespace vemo
