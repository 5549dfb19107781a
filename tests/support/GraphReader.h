#pragma once

#include <vemo/scenegraph/canvas/SceneNode.h>

#include <string>

namespace vemo {

/// Adds nodes to a scene as lines say: each has the class of a node, below that of its
/// owner and indented by two more spaces, and the values of fields:
///
///     SurfaceDrawable {"name": "wing"}
///       ColorAttributes {"opacity": 0.5}
///       PolyDataNode {"square": [0, 1, 0, 1], "cellData": {"heat": [7]}}
///
/// Drawables that are not indented are the model's, attributes those of its canvas. The
/// other canvases have lines such as "ForegroundCanvas". Geometry is a "square" (left,
/// right, bottom, top), or has "points" and cells ("verts", "lines", "polys", "strips").
/// Numbers that JSON does not have are texts: "nan", "inf".
void addNodes(lum::SceneNode& scene, const std::string& lines);

}  // namespace vemo
