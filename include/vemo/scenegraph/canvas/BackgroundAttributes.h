#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// How a background is coloured: in one colour, or from colour 1 to colour 2
/// in the direction that the name says (RADIAL: from the centre outwards).
LUM_ENUM(BackgroundColorModes, (SOLID, "solid"), (TOP_BOTTOM, "top to bottom"), (BOTTOM_TOP, "bottom to top"),
         (LEFT_RIGHT, "left to right"), (RIGHT_LEFT, "right to left"), (RADIAL, "radial"))

/// The background; colours are red, green, blue in 0..1.
class VEMO_SCENEGRAPH_EXPORT BackgroundAttributes final : public Attributes {
  LUM_NODE(BackgroundAttributes, Attributes)
  LUM_ENUMERATION(BackgroundColorModes, ColorMode, _colorMode, BackgroundColorModes::SOLID)
  LUM_VALUE(Vector3, SolidColor, _solidColor)
  LUM_VALUE(Vector3, Color1, _color1)
  LUM_VALUE(Vector3, Color2, _color2)
};

}  // namespace lum
