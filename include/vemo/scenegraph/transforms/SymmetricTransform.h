#pragma once

#include <vemo/scenegraph/transforms/Transform.h>

namespace lum {

/// The drawable together with its mirror image in the plane a x + b y + c z +
/// d = 0. The normal (a, b, c) may have any length; for one of length 0 there
/// is no mirror image.
class VEMO_SCENEGRAPH_EXPORT SymmetricTransform final : public Transform {
  LUM_NODE(SymmetricTransform, Transform)
  LUM_VALUE(Vector4, Plane, _plane, {0.0, 0.0, 1.0, 0.0})
};

}  // namespace lum
