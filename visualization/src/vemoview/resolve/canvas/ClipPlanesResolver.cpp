#include "vemoview/resolve/canvas/ClipPlanesResolver.h"

#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/ClipPlanesAttributes.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

/// No meaningful shape needs more.
constexpr std::size_t MAX_PLANES = 16;

/// OpenGL computes with single precision.
constexpr double MAX_COORDINATE = 1e38;

bool isUsable(const lum::Plane& plane) {
  const auto isInReach = [](double value) { return std::abs(value) < MAX_COORDINATE; };
  return unitVector(plane.getNormal()).has_value() && std::ranges::all_of(plane.getOrigin(), isInReach);
}

}  // namespace

std::vector<ClipPlane> resolveClipPlanes(const lum::ClipPlanesAttributes* attributes) {
  std::vector<ClipPlane> planes;
  if (attributes == nullptr || attributes->hasClippingPlanes() == nullptr) {
    return planes;
  }
  for (const auto& node : attributes->hasClippingPlanes()->getNodes()) {
    const auto* const plane = dynamic_cast<const lum::Plane*>(node.get());
    if (plane == nullptr) {
      continue;
    }
    const NodeScope scope(*plane);
    if (plane->getNormal() == Vector3()) {
      // It has no side to cut off.
      continue;
    }
    if (!isUsable(*plane)) {
      reportFinding(FindingCode::VALUE_IGNORED,
                    "A clipping plane is not applied: its values are not finite, or too large or too small");
      continue;
    }
    if (planes.size() == MAX_PLANES) {
      reportFinding(FindingCode::PLANES_LIMITED,
                    "Only the first " + std::to_string(MAX_PLANES) + " clipping planes are applied");
      break;
    }
    planes.push_back({plane->getOrigin(), normalized(plane->getNormal())});
  }
  return planes;
}

}  // namespace vemo
