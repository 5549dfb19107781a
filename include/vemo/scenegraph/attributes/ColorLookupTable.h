#pragma once

#include <vemo/scenegraph/Node.h>

namespace lum {

enum class ScaleMode : std::int32_t { LINEAR = 0, LOG10 = 1 };

/// The ramp along which a table was made from the colours at its ends. It is
/// told on, but no longer applied: the colours are all given.
enum class RampMode : std::int32_t { LINEAR = 0, SCURVE = 1, SQRT = 2 };

enum class ColorSpace : std::int32_t { RGB = 0, RGBA = 1 };

/// From numbers to colours: the scalar range is cut into as many equal pieces
/// (equal in the logarithm if so scaled) as there are colours.
class VEMO_SCENEGRAPH_EXPORT ColorLookupTable final : public Node {
  using Values = std::vector<double>;
  using Range = Vector<2, double>;
  LUM_NODE(ColorLookupTable, Node)
  /// Four values a colour: red, green, blue, alpha in 0..1.
  LUM_VALUE(Values, ColorValues, _colorValues, {})
  LUM_VALUE(std::int32_t, NumColor, _numColor, 0)
  LUM_ENUMERATION(ColorSpace, ColorSpace, _colorSpace, ColorSpace::RGBA)
  LUM_VALUE(Range, ScalarRange, _scalarRange, {0.0, 1.0})
  LUM_ENUMERATION(ScaleMode, ScaleMode, _scaleMode, ScaleMode::LINEAR)
  LUM_ENUMERATION(RampMode, RampMode, _rampMode, RampMode::LINEAR)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("colorValues", _colorValues);
    fields.add("numColor", _numColor);
    fields.addEnumeration("colorSpace", _colorSpace, ColorSpace::RGBA);
    fields.add("scalarRange", _scalarRange);
    fields.addEnumeration("scaleMode", _scaleMode, ScaleMode::LOG10);
    fields.addEnumeration("rampMode", _rampMode, RampMode::SQRT);
  }
};

}  // namespace lum
