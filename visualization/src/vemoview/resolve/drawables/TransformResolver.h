#pragma once

#include <vemo/resolve/InstanceTransforms.h>

namespace lum {
class Transform;
}

namespace vemo {

/// The instances of what has a transform (null for none) within an owner that
/// has instances itself. The classes of lum::Transform define what each
/// transform means.
SharedInstanceTransforms resolveTransforms(const lum::Transform* transform,
                                           const SharedInstanceTransforms& owner);

}  // namespace vemo
