#pragma once

#include <vemo/resolve/MeshInstance.h>

#include <vector>

namespace vemo {

struct CanvasCamera;

/// Reports what makes the meshes of a canvas impossible to see: OpenGL computes with
/// single precision.
void reportUnseenExtent(const std::vector<MeshInstance>& meshes, const CanvasCamera& camera);

}  // namespace vemo
