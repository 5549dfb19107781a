#pragma once

#include <vemo/import/OpenScene.h>

#include <string>

namespace vemo {

/// Reads a scene file of either generation, and shows how far that is. The scene is kept until
/// the next one is loaded, or the process has ended: destroying a great many nodes takes a
/// tenth of the time of `info`, and the user would wait for it.
const OpenedScene& loadScene(const std::string& file);

}  // namespace vemo
