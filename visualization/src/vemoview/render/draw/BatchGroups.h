#pragma once

#include <vemo/resolve/MeshInstance.h>

#include <vector>

namespace vemo {

/// Groups of meshes that can be drawn in one batch, because they are small and
/// are equal except for their colours (values at points agree in their table):
/// OpenGL takes as long for a mesh of a few triangles as for thousands of them.
/// Large meshes, and those that match few others, have their own group. In the
/// order of each group's first mesh, which keeps the order of meshes in the same place.
std::vector<std::vector<MeshInstance>> groupIntoBatches(std::vector<MeshInstance> meshes);

}  // namespace vemo
