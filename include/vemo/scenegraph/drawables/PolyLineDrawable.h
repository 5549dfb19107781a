#pragma once

#include <vemo/scenegraph/drawables/GeometryDrawable.h>

namespace lum {

/// Lines.
class VEMO_SCENEGRAPH_EXPORT PolyLineDrawable final : public GeometryDrawable {
  LUM_NODE(PolyLineDrawable, GeometryDrawable)
};

}  // namespace lum
