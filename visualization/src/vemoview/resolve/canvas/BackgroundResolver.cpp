#include "vemoview/resolve/canvas/BackgroundResolver.h"

#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/scenegraph/canvas/BackgroundAttributes.h>
#include <vemo/scenegraph/canvas/SceneCanvas.h>

namespace vemo {

namespace {

using Color = Vector<3, double>;
using Mode = lum::BackgroundColorModes;

LinearBackground resolveLinear(Mode mode, const Color& color1, const Color& color2) {
  const bool isVertical = mode == Mode::TOP_BOTTOM || mode == Mode::BOTTOM_TOP;
  const bool isFirstAtPositiveEnd = mode == Mode::TOP_BOTTOM || mode == Mode::RIGHT_LEFT;
  const auto corner = [&](bool isRight, bool isTop) {
    return (isVertical ? isTop : isRight) == isFirstAtPositiveEnd ? color1 : color2;
  };
  return {{corner(false, false), corner(true, false), corner(true, true), corner(false, true)}};
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

}  // namespace vemo
