#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// Whether the contour of a surface is drawn, in the colour of its mesh: its
/// border, and the edges at which it bends by more than 30 degrees.
class VEMO_SCENEGRAPH_EXPORT ContourAttributes final : public Attributes {
  LUM_NODE(ContourAttributes, Attributes)
  LUM_VALUE(bool, ContourVisible, _contourVisible, false)
};

}  // namespace lum
