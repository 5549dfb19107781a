#pragma once

#include "vemoview/render/draw/RenderMesh.h"
#include <vemo/render/Export.h>

#include <vector>

namespace vemo {

class LookupTables;

/// Merges all or some meshes of a batch, at least one. The colours of several
/// become its scalars.
VEMO_RENDER_EXPORT RenderMesh merge(const std::vector<const MeshInstance*>& meshes, LookupTables& tables);

}  // namespace vemo
