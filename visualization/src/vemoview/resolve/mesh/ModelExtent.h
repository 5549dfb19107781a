#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/MeshInstance.h>

#include <vector>

namespace vemo {

struct CanvasCamera;

/// Reports meshes of a canvas that cannot be visible, or not precisely: OpenGL computes
/// with single precision, and a stated view may show something else.
/// @return the bounds of all instances
Box reportUnseenExtent(const std::vector<MeshInstance>& meshes, const CanvasCamera& camera);

}  // namespace vemo
