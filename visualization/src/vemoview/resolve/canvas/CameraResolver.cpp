#include "vemoview/resolve/canvas/CameraResolver.h"

#include "scenegraph/attributes/CameraLimits.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/attributes/CameraAttributes.h>

#include <cmath>

namespace vemo {

namespace {

bool isDefault(const lum::CameraAttributes& camera) {
  static const auto& fresh = *new lum::Ptr<lum::CameraAttributes>(
      new lum::CameraAttributes(lum::ClassNameNodeInitializer(lum::CameraAttributes::getClassName())));
  return camera.getPosition() == fresh->getPosition() && camera.getFocalPoint() == fresh->getFocalPoint() &&
         camera.getViewUp() == fresh->getViewUp() &&
         camera.getProjectionMode() == fresh->getProjectionMode() &&
         camera.getParallelScale() == fresh->getParallelScale();
}

}  // namespace

Vector3 usableViewUp(const Vector3& viewUp, const Vector3& forward) {
  if (lum::isUsableViewUp(viewUp, forward)) {
    return normalized(viewUp);
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
  if (lum::isUsableParallelScale(camera->getParallelScale().value_or(0.0))) {
    result.parallelScale = camera->getParallelScale();
  }
  if (isDefault(*camera)) {
    return result;
  }
  const Vector3 view = camera->getFocalPoint() - camera->getPosition();
  if (lum::isUsableView(view)) {
    result.viewpoint = {camera->getPosition(), camera->getFocalPoint(),
                        usableViewUp(camera->getViewUp(), normalized(view))};
  }
  const NodeScope scope(*camera);
  if (const auto fault = lum::describeDirectionFault(*camera)) {
    reportFinding(FindingCode::VIEW_ADJUSTED, *fault);
  }
  if (const auto scale = camera->getParallelScale(); result.isParallel && scale) {
    if (const auto fault = lum::describeScaleFault(*scale)) {
      reportFinding(FindingCode::VIEW_ADJUSTED, *fault);
    }
  }
  return result;
}

}  // namespace vemo
