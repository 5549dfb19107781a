#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/InstanceTransforms.h>

namespace vemo {

/// The box around an instance of what is in a box; null is the identity.
VEMO_RESOLVE_EXPORT Box instanceBounds(const InstanceTransform* transform, const Box& box);

}  // namespace vemo
