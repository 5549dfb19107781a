#pragma once

#include <vemo/resolve/MeshInstance.h>

#include <vector>

namespace vemo {

struct CanvasCamera;

/// Reports why meshes of a canvas cannot be visible: OpenGL computes with single
/// precision.
void reportUnseenExtent(const std::vector<MeshInstance>& meshes, const CanvasCamera& camera);

}  // namespace vemo
