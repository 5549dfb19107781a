#pragma once

#include "vemoview/render/draw/RenderMesh.h"

#include <vector>

namespace vemo {

class LookupTables;

/// Merges all or some meshes of a batch, at least one. The colours of several
/// become its scalars.
RenderMesh merge(const std::vector<const MeshInstance*>& meshes, LookupTables& tables);

}  // namespace vemo
