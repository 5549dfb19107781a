#pragma once

#include <vemo/import/OpenScene.h>

#include <string>

namespace vemo {

/// Reads a scene file of either generation, and shows how far that is.
OpenedScene loadScene(const std::string& file);

/// The first scene of a file. Throws Failure with READ_ERROR when there is none.
lum::SceneNode& requireSceneNode(const OpenedScene& scene, const std::string& file);

}  // namespace vemo
