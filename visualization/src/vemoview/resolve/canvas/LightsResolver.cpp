#include "vemoview/resolve/canvas/LightsResolver.h"

#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/LightingAttributes.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

/// Enough for every scene that is lit on purpose, and few enough for the
/// drivers' shaders.
constexpr std::size_t MAX_LIGHTS = 16;

bool isUsable(const lum::Light& light) {
  // OpenGL computes with single precision. Also false for what is not a number.
  constexpr double LIMIT = 1e30;
  const auto isInReach = [](double value) { return std::abs(value) < LIMIT; };
  return isFinite(light.getColor()) && isInReach(light.getIntensity()) &&
         std::ranges::all_of(light.getAngles(), isInReach);
}

CanvasLights usableLights(const lum::LightCollection& collection) {
  CanvasLights result;
  for (const auto& node : collection.getNodes()) {
    const auto* const light = dynamic_cast<const lum::Light*>(node.get());
    if (light == nullptr) {
      continue;
    }
    const NodeScope scope(*light);
    if (!isUsable(*light)) {
      reportFinding(FindingCode::VALUE_IGNORED,
                    "A light is not used: its values are not finite, or too large");
      continue;
    }
    if (result.size() == MAX_LIGHTS) {
      reportFinding(FindingCode::LIGHTS_LIMITED, "Only the first " + std::to_string(MAX_LIGHTS) + " of " +
                                                     std::to_string(collection.getNodeCount()) +
                                                     " lights are used");
      break;
    }
    result.push_back(
        {light->getColor(), light->getIntensity(), light->getAngles()[0], light->getAngles()[1]});
  }
  return result;
}

}  // namespace

CanvasLights resolveLights(const lum::LightingAttributes* lighting) {
  return lighting != nullptr && lighting->hasLights() != nullptr ? usableLights(*lighting->hasLights())
                                                                 : CanvasLights();
}

}  // namespace vemo
