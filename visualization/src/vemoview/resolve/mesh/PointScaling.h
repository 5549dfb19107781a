#pragma once

#include <vemo/resolve/MeshInstance.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vector>

namespace vemo {

/// The points of a mesh sorted into meshes of a few sizes by an array over its
/// points, as the drawable's PointScaleAttributes say; they share all arrays.
/// The mesh alone when nothing is to be scaled, or its array does not fit. A
/// value without a size (one that is not a number, or in a logarithmic scale is
/// not above 0) has that of the low end of the range.
std::vector<MeshInstance> splitBySize(MeshInstance mesh, const lum::GeometryDrawable& drawable,
                                      const lum::PolyDataNode& node);

}  // namespace vemo
