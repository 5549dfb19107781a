#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/attributes/CoordinateSpace.h>

namespace lum {

LUM_ENUM(HorizontalAlignment, (LEFT, "left"), (CENTER, "center"), (RIGHT, "right"))
LUM_ENUM(VerticalAlignment, (BOTTOM, "bottom"), (CENTER, "center"), (TOP, "top"))

/// A text that always faces the viewer. The alignments say which of its points
/// is at its position.
class VEMO_SCENEGRAPH_EXPORT AnnotationAttributes final : public Attributes {
  LUM_NODE(AnnotationAttributes, Attributes)
  /// UTF-8; line feeds break lines.
  LUM_VALUE(std::string, Text, _text)
  LUM_ENUMERATION(CoordinateSpace, CoordinateSpace, _coordinateSpace, CoordinateSpace::WINDOW)
  LUM_ENUMERATION(HorizontalAlignment, HorizontalAlignment, _horizontalAlignment, HorizontalAlignment::LEFT)
  LUM_ENUMERATION(VerticalAlignment, VerticalAlignment, _verticalAlignment, VerticalAlignment::BOTTOM)
};

}  // namespace lum
