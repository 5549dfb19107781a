#include "vemoview/resolve/canvas/CameraResolver.h"

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/attributes/CameraAttributes.h>

#include <cmath>

namespace vemo {

namespace {

bool isDefault(const lum::CameraAttributes& camera) {
  static const lum::Ptr<lum::CameraAttributes> fresh(
      new lum::CameraAttributes(lum::ClassNameNodeInitializer(lum::CameraAttributes::getClassName())));
  return camera.getPosition() == fresh->getPosition() && camera.getFocalPoint() == fresh->getFocalPoint() &&
         camera.getViewUp() == fresh->getViewUp() &&
         camera.getProjectionMode() == fresh->getProjectionMode() &&
         camera.getParallelScale() == fresh->getParallelScale();
}

}  // namespace

Vector3 usableViewUp(const Vector3& viewUp, const Vector3& forward) {
  constexpr double MIN_SINE = 1e-6;
  const auto up = unitVector(viewUp);
  if (up && length(cross(*up, forward)) > MIN_SINE) {
    return *up;
  }
  Vector3 axis;
  axis[std::abs(forward[1]) < 0.9 ? 1 : 2] = 1.0;
  return axis;
}

CanvasCamera resolveCamera(const lum::CameraAttributes* camera) {
  CanvasCamera result;
  if (camera == nullptr) {
    return result;
  }
  result.isParallel = camera->getProjectionMode() == lum::CameraAttributes::ProjectionMode::PARALLEL;
  const auto& scale = camera->getParallelScale();
  if (scale && std::isfinite(*scale) && *scale > 0.0) {
    result.parallelScale = scale;
  }
  const auto forward =
      isDefault(*camera) ? std::nullopt : unitVector(camera->getFocalPoint() - camera->getPosition());
  if (forward) {
    result.viewpoint = {camera->getPosition(), camera->getFocalPoint(),
                        usableViewUp(camera->getViewUp(), *forward)};
  }
  return result;
}

}  // namespace vemo
