#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/attributes/CoordinateSpace.h>

namespace lum {

enum class HorizontalAlignment : std::int32_t { LEFT = 0, CENTER = 1, RIGHT = 2 };
enum class VerticalAlignment : std::int32_t { BOTTOM = 0, CENTER = 1, TOP = 2 };

/// A text and which of its points stands at its position. It always faces the
/// viewer.
class VEMO_SCENEGRAPH_EXPORT AnnotationAttributes final : public Attributes {
  LUM_NODE(AnnotationAttributes, Attributes)
  /// UTF-8; line feeds break lines.
  LUM_VALUE(std::string, Text, _text, {})
  LUM_ENUMERATION(CoordinateSpace, CoordinateSpace, _coordinateSpace, CoordinateSpace::WINDOW)
  LUM_ENUMERATION(HorizontalAlignment, HorizontalAlignment, _horizontalAlignment, HorizontalAlignment::LEFT)
  LUM_ENUMERATION(VerticalAlignment, VerticalAlignment, _verticalAlignment, VerticalAlignment::BOTTOM)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("text", _text);
    fields.addEnumeration("coordinateSpace", _coordinateSpace, CoordinateSpace::MODEL);
    fields.addEnumeration("horizontalAlignment", _horizontalAlignment, HorizontalAlignment::RIGHT);
    fields.addEnumeration("verticalAlignment", _verticalAlignment, VerticalAlignment::TOP);
  }
};

}  // namespace lum
