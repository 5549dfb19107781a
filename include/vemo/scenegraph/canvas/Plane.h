#pragma once

#include <vemo/scenegraph/Node.h>

namespace lum {

/// A plane through an origin. What is on the side that the normal points to
/// is kept. The normal need not have unit length.
class VEMO_SCENEGRAPH_EXPORT Plane final : public Node {
  LUM_NODE(Plane, Node)
  LUM_VALUE(Vector3, Normal, _normal, {0.0, 0.0, 1.0})
  LUM_VALUE(Vector3, Origin, _origin)
};

}  // namespace lum
