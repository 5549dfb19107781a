#pragma once

#include <vemo/resolve/InstanceTransforms.h>

namespace lum {
class Transform;
}

namespace vemo {

/// The instances of an object with a transform (null for none) in an owner that
/// may itself have several instances. The classes of lum::Transform define what
/// each transform means.
SharedInstanceTransforms resolveTransforms(const lum::Transform* transform,
                                           const SharedInstanceTransforms& owner);

}  // namespace vemo
