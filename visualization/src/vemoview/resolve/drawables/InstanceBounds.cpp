#include "vemoview/resolve/drawables/InstanceBounds.h"

#include "geometry/Bounds.h"

#include <vtkPolyData.h>

namespace vemo {

Box instanceBounds(const InstanceTransform* transform, const Box& box) {
  Box result;
  for (const Vector3& corner : box.corners()) {
    result.add(transformedPoint(transform, corner));
  }
  return result;
}

Box seenBounds(const MeshInstance& mesh) {
  const Box bounds = boundsOfCells(*mesh.geometry);
  Box result;
  if (mesh.appearance.kind == Appearance::Kind::POINTS || bounds.longestSide() > 0.0) {
    forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
      result.add(instanceBounds(transform, bounds));
    });
  }
  return result;
}

}  // namespace vemo
