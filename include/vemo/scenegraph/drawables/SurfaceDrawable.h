#pragma once

#include <vemo/scenegraph/drawables/GeometryDrawable.h>

namespace lum {

/// Polygons and strips, as faces, edges or both.
class VEMO_SCENEGRAPH_EXPORT SurfaceDrawable final : public GeometryDrawable {
  LUM_NODE(SurfaceDrawable, GeometryDrawable)
};

}  // namespace lum
