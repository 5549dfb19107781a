#include "scenegraph/attributes/CameraLimits.h"
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/edit/EditError.h>
#include <vemo/scenegraph/edit/View.h>

#include <cmath>

namespace lum {

namespace {

using vemo::Vector3;

void requireUsable(const Viewpoint& viewpoint) {
  const Vector3 view = viewpoint.focalPoint - viewpoint.position;
  if (!isFinite(viewpoint.position) || !isFinite(viewpoint.focalPoint) || !isUsableView(view)) {
    throw EditError("The view has no direction: position and focal point are equal or not finite");
  }
  if (!isUsableViewUp(viewpoint.viewUp, view)) {
    throw EditError("The view-up vector is zero, not finite, or parallel to the viewing direction");
  }
  if (viewpoint.parallelScale && !isUsableParallelScale(*viewpoint.parallelScale)) {
    throw EditError("The parallel scale is not a number from 1e-37 to 1e37");
  }
}

}  // namespace

ViewDirection directionOf(StandardView view) {
  constexpr Vector3 UPWARDS{0.0, 0.0, 1.0};
  switch (view) {
    case StandardView::FRONT:
      return {{0.0, 1.0, 0.0}, UPWARDS};
    case StandardView::BACK:
      return {{0.0, -1.0, 0.0}, UPWARDS};
    case StandardView::LEFT:
      return {{1.0, 0.0, 0.0}, UPWARDS};
    case StandardView::RIGHT:
      return {{-1.0, 0.0, 0.0}, UPWARDS};
    case StandardView::TOP:
      return {{0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}};
    case StandardView::BOTTOM:
      return {UPWARDS, {0.0, -1.0, 0.0}};
    case StandardView::ISO:
      break;
  }
  return {vemo::normalized(Vector3{-1.0, 1.0, -1.0}), UPWARDS};
}

void setView(SceneNode& scene, StandardView view) {
  const ViewDirection direction = directionOf(view);
  CameraAttributes& camera = scene.getModelCanvas().getCameraAttributes();
  camera.setPosition(-1.0 * direction.forward);
  camera.setFocalPoint({});
  camera.setViewUp(direction.viewUp);
  camera.setProjectionMode(ProjectionMode::PARALLEL);
  // Without a scale, everything is framed.
  camera.setParallelScale(std::nullopt);
}

void setView(SceneNode& scene, const Viewpoint& viewpoint) {
  requireUsable(viewpoint);
  CameraAttributes& camera = scene.getModelCanvas().getCameraAttributes();
  camera.setPosition(viewpoint.position);
  camera.setFocalPoint(viewpoint.focalPoint);
  camera.setViewUp(viewpoint.viewUp);
  camera.setProjectionMode(viewpoint.parallelScale ? ProjectionMode::PARALLEL : ProjectionMode::PERSPECTIVE);
  // Any scale does in perspective: without one, the default position would frame everything.
  camera.setParallelScale(viewpoint.parallelScale.value_or(1.0));
}

void setBackground(SceneNode& scene, const Vector3& top, const Vector3& bottom) {
  BackgroundAttributes& background = scene.getBackgroundCanvas().getBackgroundAttributes();
  background.setColorMode(top == bottom ? BackgroundColorModes::SOLID : BackgroundColorModes::TOP_BOTTOM);
  background.setSolidColor(top);
  background.setColor1(top);
  background.setColor2(bottom);
}

}  // namespace lum
