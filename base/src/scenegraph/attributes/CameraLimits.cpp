#include "scenegraph/attributes/CameraLimits.h"

#include <vemo/scenegraph/attributes/CameraAttributes.h>

#include <cmath>

namespace lum {

using vemo::Vector3;

bool isUsableView(const Vector3& view) {
  const double distance = vemo::length(view);
  return std::isfinite(distance) && distance > LEAST_DISTANCE;
}

bool isUsableViewUp(const Vector3& viewUp, const Vector3& view) {
  constexpr double MIN_SINE = 1e-6;
  const auto up = vemo::unitVector(viewUp);
  return up.has_value() && vemo::length(vemo::cross(*up, vemo::normalized(view))) > MIN_SINE;
}

bool isUsableParallelScale(double scale) {
  constexpr double SMALLEST = 1e-37;
  return scale >= SMALLEST && scale <= GREATEST_COORDINATE;
}

std::optional<std::string> describeDirectionFault(const CameraAttributes& camera) {
  const Vector3 view = camera.getFocalPoint() - camera.getPosition();
  const Vector3& viewUp = camera.getViewUp();
  const bool isViewKnown = !camera.isViewUnknown();
  if (isViewKnown && !isUsableView(view)) {
    return "The camera is at its focal point, or too close or too far: the scene is viewed against the z "
           "axis";
  }
  const bool isViewUpAtFault = !camera.isViewUpUnknown() && (isViewKnown || viewUp == Vector3{});
  if (isViewUpAtFault && !isUsableViewUp(viewUp, view)) {
    return "The view-up vector is zero or parallel to the viewing direction: the y axis is used instead (the "
           "z axis in a view along y)";
  }
  return std::nullopt;
}

std::optional<std::string> describeScaleFault(double parallelScale) {
  return isUsableParallelScale(parallelScale)
             ? std::nullopt
             : std::optional<std::string>("The parallel view has no usable scale: the whole scene is shown");
}

}  // namespace lum
