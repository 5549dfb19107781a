#include "vemoview/resolve/CanvasResolver.h"
#include "vemoview/resolve/canvas/BackgroundResolver.h"
#include "vemoview/resolve/drawables/VisibleDrawables.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/base/InternalError.h>
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <utility>

namespace vemo {

struct SceneResolver::State {
  State(const lum::SceneNode& scene, ResolveOptions wanted) : findings(scene), options(std::move(wanted)) {}

  CanvasResolver& at(std::size_t canvas) {
    VEMO_REQUIRE(canvas < canvases.size(), "No such canvas");
    return canvases[canvas];
  }

  void add(const lum::SceneCanvas* canvas, ResolvedCanvas::Role role) {
    if (canvas == nullptr) {
      return;
    }
    if (!CanvasResolver::canShow(*canvas)) {
      CanvasResolver::reportOutside(*canvas);
      return;
    }
    if (canvas->hasCameraAttributes() != nullptr) {
      cameras[canvas->hasCameraAttributes()] = canvases.size();
    }
    const NodeScope scope(*canvas);
    canvases.emplace_back(*canvas, role, background, cameras, tables, options);
  }

  NodeFindings findings;
  ResolveOptions options;
  CameraIndices cameras;
  ColorTables tables;
  std::vector<CanvasResolver> canvases;
  Background background;
};

SceneResolver::SceneResolver(const lum::SceneNode& scene, ResolveOptions options)
    : _state(std::make_unique<State>(scene, std::move(options))) {
  using Role = ResolvedCanvas::Role;
  const NodeFindings::Scope scope(_state->findings);
  _state->background = resolveBackground(scene);
  _state->add(scene.hasBackgroundCanvas(), Role::BACKGROUND);
  _state->add(scene.hasModelCanvas(), Role::MODEL);
  _state->add(scene.hasForegroundCanvas(), Role::FOREGROUND);
  _state->add(scene.hasOrientationCanvas(), Role::ORIENTATION);
}

SceneResolver::~SceneResolver() = default;

ResolvedScene SceneResolver::resolve() {
  const NodeFindings::Scope scope(_state->findings);
  ResolvedScene scene{_state->background, {}};
  for (CanvasResolver& canvas : _state->canvases) {
    scene.canvases.push_back(canvas.resolve());
  }
  return scene;
}

CanvasUpdate SceneResolver::update(std::size_t canvas) {
  const NodeFindings::Scope scope(_state->findings);
  return _state->at(canvas).update();
}

CanvasUpdate SceneResolver::resolveHidden(std::size_t canvas) {
  const NodeFindings::Scope scope(_state->findings);
  return _state->at(canvas).resolveHidden();
}

void SceneResolver::takeBack(std::size_t canvas) {
  _state->at(canvas).takeBack();
}

ResolvedScene resolveScene(const lum::SceneNode& scene) {
  return SceneResolver(scene).resolve();
}

DrawableSet visibleParts(const lum::Drawable& drawable) {
  // Resolving the scene has reported them.
  std::vector<Finding> known;
  const FindingCapture capture(known);
  DrawableSet parts;
  for (const VisibleDrawable& visible : collectVisible(drawable)) {
    parts.insert(visible.drawable);
  }
  return parts;
}

}  // namespace vemo
