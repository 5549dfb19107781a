#include "vemoview/resolve/CanvasResolver.h"
#include "vemoview/resolve/canvas/BackgroundResolver.h"
#include "vemoview/resolve/drawables/VisibleDrawables.h"
#include <vemo/base/InternalError.h>
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

namespace vemo {

struct SceneResolver::State {
  void add(const lum::SceneCanvas* canvas, ResolvedCanvas::Role role) {
    if (canvas == nullptr || !CanvasResolver::canShow(*canvas)) {
      return;
    }
    if (canvas->hasCameraAttributes() != nullptr) {
      cameras[canvas->hasCameraAttributes()] = canvases.size();
    }
    canvases.emplace_back(*canvas, role, cameras, tables);
  }

  CameraIndices cameras;
  ColorTables tables;
  std::vector<CanvasResolver> canvases;
  Background background;
};

SceneResolver::SceneResolver(const lum::SceneNode& scene) : _state(std::make_unique<State>()) {
  using Role = ResolvedCanvas::Role;
  _state->background = resolveBackground(scene.hasBackgroundCanvas());
  _state->add(scene.hasBackgroundCanvas(), Role::BACKGROUND);
  _state->add(scene.hasModelCanvas(), Role::MODEL);
  _state->add(scene.hasForegroundCanvas(), Role::FOREGROUND);
  _state->add(scene.hasOrientationCanvas(), Role::ORIENTATION);
}

SceneResolver::~SceneResolver() = default;

ResolvedScene SceneResolver::resolve() {
  ResolvedScene scene{_state->background, {}};
  for (CanvasResolver& canvas : _state->canvases) {
    scene.canvases.push_back(canvas.resolve());
  }
  return scene;
}

CanvasUpdate SceneResolver::update(std::size_t canvas) {
  VEMO_REQUIRE(canvas < _state->canvases.size(), "No such canvas");
  return _state->canvases[canvas].update();
}

ResolvedScene resolveScene(const lum::SceneNode& scene) {
  return SceneResolver(scene).resolve();
}

DrawableSet visibleParts(const lum::Drawable& drawable) {
  DrawableSet parts;
  for (const VisibleDrawable& visible : collectVisible(drawable)) {
    parts.insert(visible.drawable);
  }
  return parts;
}

}  // namespace vemo
