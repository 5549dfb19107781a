#pragma once

#include <vemo/scenegraph/drawables/GeometryDrawable.h>

namespace lum {

/// Points.
class VEMO_SCENEGRAPH_EXPORT PointSphereDrawable final : public GeometryDrawable {
  LUM_NODE(PointSphereDrawable, GeometryDrawable)
};

}  // namespace lum
