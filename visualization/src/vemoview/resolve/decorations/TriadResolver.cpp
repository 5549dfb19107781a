#include "vemoview/resolve/decorations/TriadResolver.h"

#include "base/Utf8.h"
#include "vemoview/resolve/canvas/CameraResolver.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include "vemoview/resolve/values/ReadableText.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/attributes/OrientationAttributes.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <vtkMatrix4x4.h>

#include <algorithm>
#include <fmt/format.h>

namespace vemo {

namespace {

using Axes = std::array<Vector3, 3>;

/// z points forward, y upwards; x completes them to the right hand.
Axes resolveAxes(const lum::OrientationAttributes* orientation) {
  Axes axes{{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
  auto& [x, y, z] = axes;
  if (orientation != nullptr) {
    z = unitVector(orientation->getForwardVector()).value_or(z);
    x = normalized(cross(usableViewUp(orientation->getUpVector(), z), z));
    y = cross(z, x);
  }
  return axes;
}

Vector3 transformedDirection(const InstanceTransform& transform, const Vector3& direction) {
  Vector<4, double> result{direction[0], direction[1], direction[2], 0.0};
  vtkMatrix4x4::MultiplyPoint(transform.data(), result.data(), result.data());
  return {result[0], result[1], result[2]};
}

std::optional<TriadDecoration::Camera> resolveTriadCamera(const lum::CameraAttributes* camera,
                                                          const CameraIndices& cameras) {
  if (camera == nullptr) {
    return std::nullopt;
  }
  const auto canvas = cameras.find(camera);
  return canvas != cameras.end() ? TriadDecoration::Camera(canvas->second) : resolveCamera(camera);
}

std::string resolveLabel(const std::string& text, double height, const std::string& owner) {
  std::string label = readableText(text, MAX_TEXT_BYTES, owner);
  if (text.size() <= MAX_TEXT_BYTES) {
    reportIfTooLong(label, height, owner);
  }
  return label;
}

}  // namespace

TriadSize drawnSize(const TriadDecoration& triad, const TriadRoom& room) {
  const double share = triad.camera ? std::min(1.0, room.canvas[0] / room.canvas[1]) : 1.0;
  const double labelHeight = std::min(triad.labelHeight * room.windowHeight,
                                      TriadDecoration::MOST_LABEL_HEIGHT * share * room.canvas[1]);
  const double axisLength = !triad.hasScreenSize ? TriadDecoration::LENGTH * share
                            : room.perUnit > 0.0
                                ? TriadDecoration::LENGTH_IN_LABELS * labelHeight / room.perUnit
                                : TriadDecoration::UNSEEN_LENGTH;
  return {labelHeight, axisLength};
}

void transformTriad(TriadDecoration& triad, const InstanceTransform& transform) {
  for (Vector3& axis : triad.axes) {
    axis = unitVector(transformedDirection(transform, axis)).value_or(axis);
  }
  triad.position = transformedPoint(&transform, triad.position);
}

std::optional<TriadDecoration> resolveTriad(const lum::TriadDrawable& triad, const CameraIndices& cameras,
                                            FontResolver& fonts) {
  TriadDecoration result;
  if (const auto* const position = triad.findAttributes<lum::PositionAttributes>()) {
    result.position = position->getPosition();
  }
  const std::string what = "The triad \"" + shortName(triad.getName()) + "\"";
  if (!isInReach(result.position)) {
    reportFinding(FindingCode::DECORATION_NOT_DRAWN,
                  what + " is not drawn: its position is not finite, or too far away");
    return std::nullopt;
  }
  if (const auto* const attributes = triad.findAttributes<lum::TriadAttributes>()) {
    result.hasScreenSize = attributes->getUseConstantPixelSize();
    result.labelHeight = unitValue(attributes->getAxisLabelHeight(), result.labelHeight);
    const auto resolve = [&](const std::string& text, const char* axis) {
      return resolveLabel(
          text, result.labelHeight,
          fmt::format("The label of the {} axis of the triad \"{}\"", axis, shortName(triad.getName())));
    };
    result.labels = {resolve(attributes->getXAxisLabelText(), "x"),
                     resolve(attributes->getYAxisLabelText(), "y"),
                     resolve(attributes->getZAxisLabelText(), "z")};
    const auto& [x, y, z] = *result.labels;
    result.style = resolveTextStyle(triad.findAttributes<lum::TextAttributes>(), {x, y, z}, what, fonts);
    reportIfTooSmall(result.labelHeight, what);
  }
  result.axes = resolveAxes(triad.findAttributes<lum::OrientationAttributes>());
  result.camera = resolveTriadCamera(triad.getCameraAttributes(), cameras);
  return result;
}

}  // namespace vemo
