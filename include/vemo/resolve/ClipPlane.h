#pragma once

#include <vemo/base/Vector.h>

#include <cstddef>

namespace vemo {

/// Graphics hardware clips by this many planes. Further ones cut the geometry
/// itself, separately for each instance.
inline constexpr std::size_t HARDWARE_CLIP_PLANES = 6;

/// Keeps what lies on the side that its normal points to.
struct ClipPlane {
  Vector3 origin;
  /// A unit vector, or zero as in the scene.
  Vector3 normal;
};

}  // namespace vemo
