#pragma once

#include "scenegraph/attributes/Attributes.h"

namespace lum {

/// How text is written.
class VEMO_SCENEGRAPH_EXPORT TextAttributes final : public Attributes {
  LUM_NODE(TextAttributes, Attributes)
  /// "Arial", "Courier" or "Times".
  LUM_VALUE(std::string, FontFamilyName, _fontFamilyName, "Arial")
  /// The sum of ITALIC, BOLD and SHADOW.
  LUM_VALUE(std::uint32_t, FontStyle, _fontStyle, 0)
  /// Red in the top byte, then green, blue, alpha.
  LUM_VALUE(std::uint32_t, ForegroundColor, _foregroundColor, 0x000000FFU)

 public:
  static constexpr std::uint32_t ITALIC = 1;
  static constexpr std::uint32_t BOLD = 2;
  static constexpr std::uint32_t SHADOW = 4;

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("fontFamilyName", _fontFamilyName);
    fields.add("fontStyle", _fontStyle);
    fields.add("foregroundColor", _foregroundColor);
  }
};

/// The labels of a triad of axes and how its size is taken.
class VEMO_SCENEGRAPH_EXPORT TriadAttributes final : public Attributes {
  LUM_NODE(TriadAttributes, Attributes)
  /// Whether the triad keeps its size on the screen whatever the camera does.
  LUM_VALUE(bool, UseConstantPixelSize, _useConstantPixelSize, true)
  /// As a fraction of the window's height.
  LUM_VALUE(double, AxisLabelHeight, _axisLabelHeight, 0.05)
  LUM_VALUE(std::string, XAxisLabelText, _xAxisLabelText, "X")
  LUM_VALUE(std::string, YAxisLabelText, _yAxisLabelText, "Y")
  LUM_VALUE(std::string, ZAxisLabelText, _zAxisLabelText, "Z")

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("useConstantPixelSize", _useConstantPixelSize);
    fields.add("axisLabelHeight", _axisLabelHeight);
    fields.add("xAxisLabelText", _xAxisLabelText);
    fields.add("yAxisLabelText", _yAxisLabelText);
    fields.add("zAxisLabelText", _zAxisLabelText);
  }
};

}  // namespace lum
