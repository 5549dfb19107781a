#include "vemoview/render/draw/View.h"

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/canvas/CameraAttributes.h>
#include <vemo/scenegraph/canvas/LightingAttributes.h>

#include <vtkCamera.h>
#include <vtkLight.h>
#include <vtkMath.h>
#include <vtkNew.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

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

/// The unit vector from one point to another; nothing when there is none.
std::optional<Vector3> direction(const Vector3& from, const Vector3& to) {
  Vector3 result{to[0] - from[0], to[1] - from[1], to[2] - from[2]};
  const double norm = length(result);
  if (!std::isfinite(norm) || norm <= 0.0) {
    return std::nullopt;
  }
  return normalized(result);
}

bool hasUsableScale(const lum::CameraAttributes& camera) {
  return camera.getParallelScale() && std::isfinite(*camera.getParallelScale()) &&
         *camera.getParallelScale() > 0.0;
}

/// Enough for every scene that is lit on purpose, and few enough for the
/// drivers' shaders.
constexpr std::size_t MOST_LIGHTS = 16;

bool isUsable(const lum::Light& light) {
  return isFinite(light.getColor()) && std::isfinite(light.getIntensity()) &&
         std::isfinite(light.getAngles()[0]) && std::isfinite(light.getAngles()[1]);
}

void addLight(vtkRenderer& renderer, const lum::Light& from) {
  vtkNew<vtkLight> light;
  light->SetLightTypeToCameraLight();
  light->SetColor(from.getColor()[0], from.getColor()[1], from.getColor()[2]);
  light->SetIntensity(from.getIntensity());
  light->SetDirectionAngle(from.getAngles()[1], from.getAngles()[0]);
  renderer.AddLight(light);
}

void addHeadlight(vtkRenderer& renderer, const Vector3& color) {
  vtkNew<vtkLight> light;
  light->SetLightTypeToHeadlight();
  light->SetColor(color[0], color[1], color[2]);
  renderer.AddLight(light);
}

/// The lights that shine, at most MOST_LIGHTS.
std::vector<const lum::Light*> usableLights(const lum::LightingAttributes* lighting) {
  std::vector<const lum::Light*> result;
  const auto* const lights = lighting != nullptr ? lighting->hasLights() : nullptr;
  if (lights == nullptr) {
    return result;
  }
  for (const auto& node : lights->getNodes()) {
    const auto* const light = dynamic_cast<const lum::Light*>(node.get());
    if (light == nullptr || !isUsable(*light)) {
      continue;
    }
    if (result.size() == MOST_LIGHTS) {
      VEMO_LOG_WARNING("Only the first " << MOST_LIGHTS << " of " << lights->getNodeCount()
                                         << " lights shine");
      break;
    }
    result.push_back(light);
  }
  return result;
}

/// In the lights' own mean colour, so that what is lit in red stays red.
Vector3 fillColor(const std::vector<const lum::Light*>& lights) {
  constexpr double SHARE = 0.25;
  Vector3 color;
  for (const lum::Light* const light : lights) {
    for (std::size_t i = 0; i < 3; ++i) {
      color[i] += SHARE * light->getColor()[i] * light->getIntensity() / static_cast<double>(lights.size());
    }
  }
  return color;
}

}  // namespace

Vector3 usableViewUp(const Vector3& viewUp, const Vector3& sight) {
  constexpr double LEAST_SINE = 1e-6;
  const auto up = direction({}, viewUp);
  if (up) {
    Vector3 across;
    vtkMath::Cross(up->data(), sight.data(), across.data());
    if (length(across) > LEAST_SINE) {
      return *up;
    }
  }
  Vector3 axis;
  axis[std::abs(sight[1]) < 0.9 ? 1 : 2] = 1.0;
  return axis;
}

void setCamera(vtkRenderer& renderer, const lum::CameraAttributes* camera) {
  vtkCamera& view = *renderer.GetActiveCamera();
  const auto sight = camera == nullptr || isDefault(*camera)
                         ? std::nullopt
                         : direction(camera->getPosition(), camera->getFocalPoint());
  const bool isParallel =
      camera != nullptr && camera->getProjectionMode() == lum::CameraAttributes::ProjectionMode::PARALLEL;
  view.SetParallelProjection(isParallel);
  if (sight) {
    view.SetPosition(camera->getPosition().data());
    view.SetFocalPoint(camera->getFocalPoint().data());
    view.SetViewUp(usableViewUp(camera->getViewUp(), *sight).data());
  } else {
    view.SetPosition(0.0, 0.0, 1.0);
    view.SetFocalPoint(0.0, 0.0, 0.0);
    view.SetViewUp(0.0, 1.0, 0.0);
  }
  if (isParallel && hasUsableScale(*camera)) {
    view.SetParallelScale(*camera->getParallelScale());
  }
  if (!sight || (isParallel && !hasUsableScale(*camera))) {
    renderer.ResetCamera();
  }
  renderer.ResetCameraClippingRange();
}

void setLights(vtkRenderer& renderer, const lum::LightingAttributes* lighting) {
  renderer.AutomaticLightCreationOff();
  const auto lights = usableLights(lighting);
  for (const lum::Light* const light : lights) {
    addLight(renderer, *light);
  }
  addHeadlight(renderer, lights.empty() ? Vector3{1.0, 1.0, 1.0} : fillColor(lights));
}

}  // namespace vemo
