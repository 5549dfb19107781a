#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

enum class LegendOrientation : std::int32_t { VERTICAL = 0, HORIZONTAL = 1 };

/// A colour bar with a title and numbers.
class VEMO_SCENEGRAPH_EXPORT LegendAttributes final : public Attributes {
  using Size = Vector<2, double>;
  LUM_NODE(LegendAttributes, Attributes)
  LUM_VALUE(std::string, Title, _title, {})
  LUM_ENUMERATION(LegendOrientation, Orientation, _orientation, LegendOrientation::VERTICAL)
  /// Of bar, title and numbers together, as fractions of the window's width and
  /// height.
  LUM_VALUE(Size, Size, _size, {0.12, 0.5})
  LUM_VALUE(std::int32_t, NumberOfLabels, _numberOfLabels, 5)
  /// How numbers are written: one conversion of the C library for a double,
  /// with text around it at will, as "%.3g m".
  LUM_VALUE(std::string, LabelFormat, _labelFormat, "%.4g")

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("title", _title);
    fields.addEnumeration("orientation", _orientation, LegendOrientation::HORIZONTAL);
    fields.add("size", _size);
    fields.add("numberOfLabels", _numberOfLabels);
    fields.add("labelFormat", _labelFormat);
  }
};

}  // namespace lum
