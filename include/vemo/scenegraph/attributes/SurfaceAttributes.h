#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// Whether the faces of a surface are drawn.
class VEMO_SCENEGRAPH_EXPORT SurfaceAttributes final : public Attributes {
  LUM_NODE(SurfaceAttributes, Attributes)
  LUM_VALUE(bool, Shaded, _shaded, true)
};

}  // namespace lum
