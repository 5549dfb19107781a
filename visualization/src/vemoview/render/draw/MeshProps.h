#pragma once

#include <vemo/render/Export.h>
#include <vemo/resolve/MeshInstance.h>

#include <vector>

namespace vemo {

struct CanvasResources;
class PropGroup;

/// Adds the props that draw all or some meshes of a batch, at least one, to a group. They
/// look as if each was drawn by itself.
VEMO_RENDER_EXPORT void addProps(const std::vector<const MeshInstance*>& meshes, CanvasResources& resources,
                                 PropGroup& group);

}  // namespace vemo
