#include "vemoview/resolve/canvas/BackgroundResolver.h"

#include "vemoview/resolve/values/NodeFindings.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/BackgroundAttributes.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <cmath>
#include <variant>

namespace vemo {

namespace {

using Color = Vector3;
using Mode = lum::BackgroundColorModes;

LinearBackground resolveLinear(Mode mode, const Color& color1, const Color& color2) {
  const bool isVertical = mode == Mode::TOP_BOTTOM || mode == Mode::BOTTOM_TOP;
  const bool isFirstAtPositiveEnd = mode == Mode::TOP_BOTTOM || mode == Mode::RIGHT_LEFT;
  const auto corner = [&](bool isRight, bool isTop) {
    return (isVertical ? isTop : isRight) == isFirstAtPositiveEnd ? color1 : color2;
  };
  return {{corner(false, false), corner(true, false), corner(true, true), corner(false, true)}};
}

/// As the contrast of text is defined in WCAG 2: of light, not of bytes.
double luminance(const Color& color) {
  const auto linear = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color[0]) + 0.7152 * linear(color[1]) + 0.0722 * linear(color[2]);
}

double meanLuminance(const SolidBackground& background) {
  return luminance(background.color);
}

double meanLuminance(const LinearBackground& background) {
  double sum = 0.0;
  for (const Color& corner : background.corners) {
    sum += luminance(corner);
  }
  return sum / static_cast<double>(background.corners.size());
}

double meanLuminance(const RadialBackground& background) {
  return (luminance(background.center) + luminance(background.corners)) / 2.0;
}

using Place = Vector<2, double>;

double luminanceAt(const Place& /*place*/, const SolidBackground& background) {
  return luminance(background.color);
}

double luminanceAt(const Place& place, const LinearBackground& background) {
  const auto& [lowerLeft, lowerRight, upperRight, upperLeft] = background.corners;
  const auto blend = [](double share, const Color& from, const Color& to) {
    return from + share * (to - from);
  };
  return luminance(
      blend(place[1], blend(place[0], lowerLeft, lowerRight), blend(place[0], upperLeft, upperRight)));
}

double luminanceAt(const Place& place, const RadialBackground& background) {
  const double share = std::hypot(place[0] - 0.5, place[1] - 0.5) / std::hypot(0.5, 0.5);
  return luminance(background.center + share * (background.corners - background.center));
}

Background resolve(const lum::BackgroundAttributes& attributes) {
  const Mode mode = attributes.getColorMode();
  if (mode == Mode::SOLID) {
    return SolidBackground{usableColor(attributes.getSolidColor())};
  }
  const Color color1 = usableColor(attributes.getColor1());
  const Color color2 = usableColor(attributes.getColor2());
  if (mode == Mode::RADIAL) {
    return RadialBackground{color1, color2};
  }
  return resolveLinear(mode, color1, color2);
}

}  // namespace

Background resolveBackground(const lum::SceneNode& scene) {
  const lum::BackgroundAttributes* used = nullptr;
  for (const lum::SceneCanvas* const canvas : {scene.hasBackgroundCanvas(), scene.hasModelCanvas(),
                                               scene.hasForegroundCanvas(), scene.hasOrientationCanvas()}) {
    const auto* const found =
        canvas != nullptr ? canvas->findAttributes<lum::BackgroundAttributes>() : nullptr;
    if (used != nullptr && found != nullptr) {
      const NodeScope scope(*found);
      reportFinding(FindingCode::ATTRIBUTE_WITHOUT_EFFECT,
                    "Another canvas is behind this one: its background is drawn instead");
    }
    used = used != nullptr ? used : found;
  }
  return used != nullptr ? resolve(*used) : SolidBackground{};
}

bool isDark(const Background& background, const std::optional<Place>& place) {
  // The contrasts, (1 + 0.05) / (L + 0.05) and (L + 0.05) / (0 + 0.05), are equal here.
  constexpr double MIDDLE = 0.179;
  const auto luminanceOf = [&place](const auto& kind) {
    return place ? luminanceAt(*place, kind) : meanLuminance(kind);
  };
  return std::visit(luminanceOf, background) < MIDDLE;
}

}  // namespace vemo
