#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// Which colour a drawable is drawn in.
LUM_ENUM(ColorMode,
         /// The one colour of the drawable.
         (PLAIN, "plain"),
         /// Each piece of geometry in the colour kept under its node's name.
         (KEYED, "by key"),
         /// By a data array, through the scalar attributes' colour lookup table.
         (DATA, "by data"))

/// Colour and opacity of a drawable. Colours are red, green, blue in 0..1.
class VEMO_SCENEGRAPH_EXPORT ColorAttributes final : public Attributes {
 public:
  using Colors = std::map<std::string, Vector3>;

  LUM_NODE(ColorAttributes, Attributes)
  LUM_ENUMERATION(ColorMode, ColorMode, _colorMode, ColorMode::PLAIN)
  LUM_FIELD(std::optional<Vector3>, _color)
  LUM_FIELD(Colors, _colors)
  LUM_FIELD(double, _opacity, 1.0)

 public:
  /// The plain colour; empty until it is set, and renderers use a default.
  const std::optional<Vector3>& getColor() const { return _color; }
  /// If `recursive`, what the drawable owns gets the same colour.
  void setColor(const Vector3& color, bool recursive) {
    changeAll<ColorAttributes>(recursive, [&](ColorAttributes& each) { each.assign(each._color, color); });
  }

  /// The keyed colours: a poly data node's name -> its colour.
  const Colors& getColors() const { return _colors; }
  void setColor(const std::string& key, const Vector3& color) {
    const auto [entry, isNew] = _colors.try_emplace(key, color);
    if (isNew || !sameBits(entry->second, color)) {
      entry->second = color;
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
};

}  // namespace lum
