#pragma once

#include <vemo/render/Export.h>
#include <vemo/resolve/MeshInstance.h>

#include <functional>
#include <vector>

namespace vemo {

struct CanvasResources;
class MeshActor;
class PropGroup;

/// Makes the actors that draw all or some meshes of a batch, at least one, and passes each to a function,
/// in the order in which they are drawn. They look as if each mesh was drawn by itself.
void makeActors(const std::vector<const MeshInstance*>& meshes, CanvasResources& resources,
                const std::function<void(MeshActor&)>& use);

/// Adds these actors to a group.
VEMO_RENDER_EXPORT void addProps(const std::vector<const MeshInstance*>& meshes, CanvasResources& resources,
                                 PropGroup& group);

}  // namespace vemo
