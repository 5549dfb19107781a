#pragma once

#include <vemo/scenegraph/canvas/SceneNode.h>

#include <cstdint>

namespace vemo {

/// A scene of small geometries as the conversion makes them, 98 triangles each,
/// 100 to an assembly, side by side in a plane.
lum::Ptr<lum::SceneNode> makeManyItems(std::int64_t count);

}  // namespace vemo
