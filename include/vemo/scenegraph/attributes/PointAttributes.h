#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// The size of points in pixels.
class VEMO_SCENEGRAPH_EXPORT PointAttributes final : public Attributes {
  LUM_NODE(PointAttributes, Attributes)
  LUM_VALUE(float, Size, _size, 1.0F)
};

}  // namespace lum
