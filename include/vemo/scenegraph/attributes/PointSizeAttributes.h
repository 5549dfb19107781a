#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// The size of points that are drawn as spheres, in pixels.
class VEMO_SCENEGRAPH_EXPORT PointSizeAttributes final : public Attributes {
  LUM_NODE(PointSizeAttributes, Attributes)
  LUM_VALUE(double, PointSize, _pointSize, 1.0)
};

}  // namespace lum
