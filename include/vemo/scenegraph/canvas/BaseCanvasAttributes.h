#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// How much of the window a canvas covers, and how it is drawn and used.
class VEMO_SCENEGRAPH_EXPORT BaseCanvasAttributes final : public Attributes {
  LUM_NODE(BaseCanvasAttributes, Attributes)
  /// As fractions of the window's width and height.
  LUM_VALUE(Vector2, Size, _size, {1.0, 1.0})
  /// Whether the area is cleared before the canvas is drawn.
  LUM_VALUE(bool, Erase, _erase, true)
  /// Whether the canvas responds to the mouse.
  LUM_VALUE(bool, Interactive, _interactive, false)
};

}  // namespace lum
