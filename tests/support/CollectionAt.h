#pragma once

#include "scenegraph/SceneNode.h"

#include <string>

/// The collection in the model canvas that the names of collections lead to, as
/// "A/B"; the canvas's own for none.
lum::DrawableCollection& collectionAt(lum::SceneNode& scene, const std::string& path);
