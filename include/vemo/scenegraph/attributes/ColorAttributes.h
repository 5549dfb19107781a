#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// Which colour a drawable is drawn in.
enum class ColorMode : std::int32_t {
  /// The one colour of the drawable.
  PLAIN = 0,
  /// Each piece of geometry in the colour kept under its node's name.
  KEYED = 1,
  /// By a data array, through the scalar attributes' colour lookup table.
  DATA = 2,
};

/// Colour and opacity of a drawable. Colours are red, green, blue in 0..1.
class VEMO_SCENEGRAPH_EXPORT ColorAttributes final : public Attributes {
  LUM_NODE(ColorAttributes, Attributes)
  LUM_ENUMERATION(ColorMode, ColorMode, _colorMode, ColorMode::PLAIN)

 public:
  using Colors = std::map<std::string, Vector<3, double>>;

  /// The plain colour; nothing until it is set: renderers have a default.
  const std::optional<Vector<3, double>>& getColor() const { return _color; }
  /// If `recursive`, what the drawable owns gets the same colour.
  void setColor(const Vector<3, double>& color, bool recursive) {
    changeAll<ColorAttributes>(recursive, [&](ColorAttributes& each) { each.assign(each._color, color); });
  }

  /// The keyed colours: a poly data node's name -> its colour.
  const Colors& getColors() const { return _colors; }
  void setColor(const std::string& key, const Vector<3, double>& color) {
    const auto [place, isNew] = _colors.try_emplace(key, color);
    if (isNew || !sameBits(place->second, color)) {
      place->second = color;
      modified();
    }
  }

  /// 0 is invisible, 1 opaque.
  double getOpacity() const { return _opacity; }
  /// If `recursive`, what the drawable owns gets the same opacity.
  void setOpacity(double opacity, bool recursive) {
    changeAll<ColorAttributes>(recursive,
                               [=](ColorAttributes& each) { each.assign(each._opacity, opacity); });
  }

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.addEnumeration("colorMode", _colorMode, ColorMode::DATA);
    fields.add("color", _color);
    fields.add("colors", _colors);
    fields.add("opacity", _opacity);
  }

 private:
  std::optional<Vector<3, double>> _color;
  Colors _colors;
  double _opacity = 1.0;
};

}  // namespace lum
