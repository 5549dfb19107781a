#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// The width of lines, and of a surface's edges, in pixels.
class VEMO_SCENEGRAPH_EXPORT LineAttributes final : public Attributes {
  LUM_NODE(LineAttributes, Attributes)
  LUM_VALUE(double, LineWidth, _lineWidth, 1.0)
};

}  // namespace lum
