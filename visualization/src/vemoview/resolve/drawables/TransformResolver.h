#pragma once

#include <vemo/resolve/InstanceTransforms.h>

namespace lum {
class Transform;
}

namespace vemo {

/// The instances of an object with a transform (null for none) in an owner that
/// may itself have several instances. The classes of lum::Transform define what
/// each transform means.
/// @param areLimited whether repeats of the owner are left out, and then whether any are:
///     that is reported once
SharedInstanceTransforms resolveTransforms(const lum::Transform* transform,
                                           const SharedInstanceTransforms& owner, bool& areLimited);

}  // namespace vemo
