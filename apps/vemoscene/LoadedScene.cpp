#include "LoadedScene.h"

#include "InputFile.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <fmt/format.h>
#include <optional>

namespace vemo {

const OpenedScene& loadScene(const std::string& file) {
  // Never destroyed.
  static auto& scene = *new std::optional<OpenedScene>;
  scene.reset();
  Progress progress(fmt::format("Reading {}", toPrintable(file)));
  return scene.emplace(openScene(toWidePath(readableFile(file)), progress.getReport()));
}

lum::SceneNode& requireSceneNode(const OpenedScene& scene, const std::string& file) {
  lum::SceneNode* const node = scene.findSceneNode();
  if (node == nullptr) {
    throw Failure(ExitCode::READ_ERROR, fmt::format("{}: The database holds no scene", file));
  }
  return *node;
}

}  // namespace vemo
