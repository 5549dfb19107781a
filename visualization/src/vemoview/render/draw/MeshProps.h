#pragma once

#include "vemoview/render/draw/RenderMesh.h"

class vtkPlaneCollection;

namespace vemo {

class PropGroup;

/// Adds the props that draw a mesh to a group. The planes clip it if its
/// appearance says so.
void addProps(const RenderMesh& mesh, vtkPlaneCollection& clipPlanes, PropGroup& group);

}  // namespace vemo
