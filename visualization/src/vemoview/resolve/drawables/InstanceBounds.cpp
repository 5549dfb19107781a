#include "vemoview/resolve/drawables/InstanceBounds.h"

namespace vemo {

Box instanceBounds(const InstanceTransform* transform, const Box& box) {
  Box result;
  for (const Vector3& corner : box.corners()) {
    result.add(transformedPoint(transform, corner));
  }
  return result;
}

}  // namespace vemo
