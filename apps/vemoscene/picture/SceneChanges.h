#pragma once

#include "picture/ValueTexts.h"
#include <vemo/render/ScenePicture.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace lum {
class SceneNode;
}

namespace vemo {

/// What the options of a picture change in a scene before it is drawn.
struct SceneChanges {
  std::optional<lum::StandardView> view;
  std::optional<CameraValue> camera;
  std::vector<std::string> fitted;
  std::vector<std::string> hidden;
  std::vector<std::string> shown;
  std::optional<std::string> array;
  std::optional<Vector<2, double>> range;
  std::optional<std::pair<Vector3, Vector3>> background;
};

/// Adds the options that fill `changes`, which must outlive the parser.
void addSceneChanges(CLI::App& app, SceneChanges& changes);

/// Changes the scene, and the options as far as they are about its nodes. Throws
/// lum::EditError.
void applyChanges(const SceneChanges& changes, lum::SceneNode& scene, RenderOptions& options);

}  // namespace vemo
