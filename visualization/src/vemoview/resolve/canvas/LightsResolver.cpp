#include "vemoview/resolve/canvas/LightsResolver.h"

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/LightingAttributes.h>

#include <cmath>

namespace vemo {

namespace {

/// Enough for every scene that is lit on purpose, and few enough for the
/// drivers' shaders.
constexpr std::size_t MOST_LIGHTS = 16;

bool isUsable(const lum::Light& light) {
  return isFinite(light.getColor()) && std::isfinite(light.getIntensity()) && isFinite(light.getAngles());
}

std::vector<DirectionalLight> usableLights(const lum::LightCollection& collection) {
  std::vector<DirectionalLight> result;
  for (const auto& node : collection.getNodes()) {
    const auto* const light = dynamic_cast<const lum::Light*>(node.get());
    if (light == nullptr || !isUsable(*light)) {
      continue;
    }
    if (result.size() == MOST_LIGHTS) {
      reportFinding(FindingCode::LIGHTS_LIMITED, "Only the first " + std::to_string(MOST_LIGHTS) + " of " +
                                                     std::to_string(collection.getNodeCount()) +
                                                     " lights shine");
      break;
    }
    result.push_back(
        {light->getColor(), light->getIntensity(), light->getAngles()[0], light->getAngles()[1]});
  }
  return result;
}

/// In the lights' own mean colour, so that what is lit in red stays red.
Vector3 fillColor(const std::vector<DirectionalLight>& lights) {
  constexpr double SHARE = 0.25;
  Vector3 color;
  for (const DirectionalLight& light : lights) {
    for (std::size_t i = 0; i < 3; ++i) {
      color[i] += SHARE * light.color[i] * light.intensity / static_cast<double>(lights.size());
    }
  }
  return color;
}

}  // namespace

CanvasLights resolveLights(const lum::LightingAttributes* lighting) {
  CanvasLights result;
  if (lighting != nullptr && lighting->hasLights() != nullptr) {
    result.lights = usableLights(*lighting->hasLights());
  }
  if (!result.lights.empty()) {
    result.headlight = fillColor(result.lights);
  }
  return result;
}

}  // namespace vemo
