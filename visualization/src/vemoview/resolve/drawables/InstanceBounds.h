#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/MeshInstance.h>

namespace vemo {

/// The box around an instance of what is in a box; null is the identity.
VEMO_RESOLVE_EXPORT Box instanceBounds(const InstanceTransform* transform, const Box& box);

/// The box around what can be seen of a mesh: empty for faces and lines that have collapsed to a
/// point.
VEMO_RESOLVE_EXPORT Box seenBounds(const MeshInstance& mesh);

}  // namespace vemo
