#include "scenegraph/attributes/CameraLimits.h"

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

std::vector<std::string> describeViewFaults(const Vector3& view, const Vector3& viewUp,
                                            const std::optional<double>& parallelScale) {
  std::vector<std::string> faults;
  if (!isUsableView(view)) {
    faults.emplace_back(
        "The camera is at its focal point, or too close or too far: the scene is viewed against the z axis");
  } else if (!isUsableViewUp(viewUp, view)) {
    faults.emplace_back(
        "The view-up vector is zero or parallel to the viewing direction: the y axis is used instead (the "
        "z axis in a view along y)");
  }
  if (parallelScale && !isUsableParallelScale(*parallelScale)) {
    faults.emplace_back("The parallel view has no usable scale: the whole scene is shown");
  }
  return faults;
}

}  // namespace lum
