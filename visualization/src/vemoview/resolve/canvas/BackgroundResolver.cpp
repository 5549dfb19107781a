#include "vemoview/resolve/canvas/BackgroundResolver.h"

#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/scenegraph/canvas/BackgroundAttributes.h>
#include <vemo/scenegraph/canvas/SceneCanvas.h>

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

}  // namespace

Background resolveBackground(const lum::SceneCanvas* canvas) {
  const auto* const attributes =
      canvas != nullptr ? canvas->findAttributes<lum::BackgroundAttributes>() : nullptr;
  if (attributes == nullptr) {
    return SolidBackground{};
  }
  const Mode mode = attributes->getColorMode();
  if (mode == Mode::SOLID) {
    return SolidBackground{usableColor(attributes->getSolidColor())};
  }
  const Color color1 = usableColor(attributes->getColor1());
  const Color color2 = usableColor(attributes->getColor2());
  if (mode == Mode::RADIAL) {
    return RadialBackground{color1, color2};
  }
  return resolveLinear(mode, color1, color2);
}

bool isDark(const Background& background) {
  // The contrasts, (1 + 0.05) / (L + 0.05) and (L + 0.05) / (0 + 0.05), are equal here.
  constexpr double MIDDLE = 0.179;
  return std::visit([](const auto& kind) { return meanLuminance(kind); }, background) < MIDDLE;
}

}  // namespace vemo
