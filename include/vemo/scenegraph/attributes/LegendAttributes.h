#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

LUM_ENUM(LegendOrientation, (VERTICAL, "vertical"), (HORIZONTAL, "horizontal"))

/// A colour bar with a title and numbers.
class VEMO_SCENEGRAPH_EXPORT LegendAttributes final : public Attributes {
  LUM_NODE(LegendAttributes, Attributes)
  LUM_VALUE(std::string, Title, _title)
  LUM_ENUMERATION(LegendOrientation, Orientation, _orientation, LegendOrientation::VERTICAL)
  /// The size of bar, title and numbers together, as fractions of the window's
  /// width and height.
  LUM_VALUE(Vector2, Size, _size, {0.12, 0.5})
  LUM_VALUE(std::int32_t, NumberOfLabels, _numberOfLabels, 5)
  /// The format of numbers: one conversion of `printf` for a double, with any
  /// text around it, such as "%.3g m".
  LUM_VALUE(std::string, LabelFormat, _labelFormat, "%.4g")
};

}  // namespace lum
