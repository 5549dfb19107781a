#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// The lower left corner of a canvas, as fractions of the window's width and
/// height.
class VEMO_SCENEGRAPH_EXPORT CanvasPositionAttributes final : public Attributes {
  LUM_NODE(CanvasPositionAttributes, Attributes)
  LUM_VALUE(Vector2, Position, _position)
};

}  // namespace lum
