#pragma once

#include "vemoview/render/draw/RenderMesh.h"
#include <vemo/render/Export.h>

class vtkPlaneCollection;

namespace vemo {

class PropGroup;

/// Adds the props that draw a mesh to a group. The planes clip it if its
/// appearance says so.
VEMO_RENDER_EXPORT void addProps(const RenderMesh& mesh, vtkPlaneCollection& clipPlanes, PropGroup& group);

}  // namespace vemo
