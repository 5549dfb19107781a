#pragma once

#include "vemoview/render/draw/RenderMesh.h"

#include <vector>

namespace vemo {

class LookupTables;

/// One mesh of those of a batch, or of some of them, at least one. The colours
/// of several become its scalars.
RenderMesh merge(const std::vector<const MeshInstance*>& meshes, LookupTables& tables);

}  // namespace vemo
