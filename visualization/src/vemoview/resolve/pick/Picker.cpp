#include "vemoview/resolve/pick/CellPicker.h"
#include <vemo/base/Vector.h>
#include <vemo/resolve/MeshInstance.h>
#include <vemo/resolve/Picker.h>

#include <algorithm>

namespace vemo {

namespace {

RayInterval clip(const RayInterval& interval, const PickRay& ray, const ClipPlane& plane) {
  const double height = dot(plane.normal, ray.origin - plane.origin);
  const double slope = dot(plane.normal, ray.direction);
  if (slope > 0.0) {
    return {std::max(interval.first, -height / slope), interval.last};
  }
  if (slope < 0.0) {
    return {interval.first, std::min(interval.last, -height / slope)};
  }
  return height >= 0.0 ? interval : RayInterval{0.0, -1.0};
}

}  // namespace

Picker::Picker(const PickRay& ray, std::span<const ClipPlane> clipPlanes) : _ray(ray) {
  for (const ClipPlane& plane : clipPlanes) {
    _unclipped = clip(_unclipped, ray, plane);
  }
}

void Picker::test(const MeshInstance& mesh) {
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    CellPicker cells(_ray, mesh.appearance.isClipped ? _unclipped : _whole, mesh, transform, _nearestRank);
    if (const auto hit = cells.run()) {
      _nearestRank = hit->rank;
      _nearest = Pick{mesh.drawable,
                      mesh.node,
                      hit->cell,
                      hit->point,
                      _ray.at(hit->distance),
                      cells.positionOf(hit->point)};
    }
  });
}

}  // namespace vemo
