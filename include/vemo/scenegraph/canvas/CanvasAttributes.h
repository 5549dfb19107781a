#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// How much of the window a canvas takes and how it is put there.
class VEMO_SCENEGRAPH_EXPORT BaseCanvasAttributes final : public Attributes {
  using Size = Vector<2, double>;
  LUM_NODE(BaseCanvasAttributes, Attributes)
  /// As fractions of the window's width and height.
  LUM_VALUE(Size, Size, _size, {1.0, 1.0})
  /// Whether what lies behind is wiped before the canvas is drawn.
  LUM_VALUE(bool, Erase, _erase, true)
  /// Whether the canvas answers to the mouse.
  LUM_VALUE(bool, Interactive, _interactive, false)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("size", _size);
    fields.add("erase", _erase);
    fields.add("interactive", _interactive);
  }
};

/// Where the lower left corner of a canvas lies, as fractions of the window's
/// width and height.
class VEMO_SCENEGRAPH_EXPORT CanvasPositionAttributes final : public Attributes {
  using Position = Vector<2, double>;
  LUM_NODE(CanvasPositionAttributes, Attributes)
  LUM_VALUE(Position, Position, _position, {})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("position", _position);
  }
};

/// How a background is coloured: in one colour, or from colour 1 to colour 2
/// in the direction that the name says (RADIAL: from the centre outwards).
enum class BackgroundColorModes : std::int32_t {
  SOLID = 0,
  TOP_BOTTOM = 1,
  BOTTOM_TOP = 2,
  LEFT_RIGHT = 3,
  RIGHT_LEFT = 4,
  RADIAL = 5,
};

/// The background; colours are red, green, blue in 0..1.
class VEMO_SCENEGRAPH_EXPORT BackgroundAttributes final : public Attributes {
  using Color = Vector<3, double>;
  LUM_NODE(BackgroundAttributes, Attributes)
  LUM_ENUMERATION(BackgroundColorModes, ColorMode, _colorMode, BackgroundColorModes::SOLID)
  LUM_VALUE(Color, SolidColor, _solidColor, {})
  LUM_VALUE(Color, Color1, _color1, {})
  LUM_VALUE(Color, Color2, _color2, {})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.addEnumeration("colorMode", _colorMode, BackgroundColorModes::RADIAL);
    fields.add("solidColor", _solidColor);
    fields.add("color1", _color1);
    fields.add("color2", _color2);
  }
};

}  // namespace lum
