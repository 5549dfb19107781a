#pragma once

#include <vemo/scenegraph/SceneNode.h>

#include <string>

namespace vemo {

/// The collection in the model canvas that the names of collections lead to, as
/// "A/B"; the canvas's own for none.
lum::DrawableCollection& collectionAt(lum::SceneNode& scene, const std::string& path);

}  // namespace vemo
