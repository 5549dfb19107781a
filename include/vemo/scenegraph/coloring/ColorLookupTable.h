#pragma once

#include <vemo/scenegraph/Node.h>

#include <array>
#include <optional>

namespace lum {

LUM_ENUM(ScaleMode, (LINEAR, "linear"), (LOG10, "logarithmic"))

/// The ramp by which a table was interpolated between its end colours. It is
/// information only: the table holds all colours.
LUM_ENUM(RampMode, (LINEAR, "linear"), (SCURVE, "s-curve"), (SQRT, "square root"))

LUM_ENUM(ColorSpace, (RGB, "RGB"), (RGBA, "RGBA"))

/// From numbers to colours: the scalar range is cut into as many equal pieces
/// (equal in the logarithm if so scaled) as there are colours.
class VEMO_SCENEGRAPH_EXPORT ColorLookupTable final : public Node {
  LUM_NODE(ColorLookupTable, Node)
  /// Four values a colour: red, green, blue, alpha in 0..1.
  LUM_VALUE(SharedNumbers, ColorValues, _colorValues)
  LUM_VALUE(std::int32_t, NumColor, _numColor, 0)
  LUM_ENUMERATION(ColorSpace, ColorSpace, _colorSpace, ColorSpace::RGBA)
  LUM_VALUE(Vector2, ScalarRange, _scalarRange, {0.0, 1.0})
  LUM_ENUMERATION(ScaleMode, ScaleMode, _scaleMode, ScaleMode::LINEAR)
  LUM_ENUMERATION(RampMode, RampMode, _rampMode, RampMode::LINEAR)

 public:
  /// Which ends of the range could not be read, as a finding says, and count as 0: what follows from
  /// that is then not another finding. Not stored, and about the present range alone.
  std::array<bool, 2> getUnknownEnds() const {
    return _unknownEndsOf == _scalarRange ? _unknownEnds : std::array<bool, 2>{};
  }
  void setUnknownEnds(const std::array<bool, 2>& ends) {
    _unknownEnds = ends;
    _unknownEndsOf = _scalarRange;
  }

 private:
  std::array<bool, 2> _unknownEnds{};
  std::optional<Vector2> _unknownEndsOf;
};

}  // namespace lum
