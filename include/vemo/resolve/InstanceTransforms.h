#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/Export.h>

#include <array>
#include <memory>
#include <vector>

namespace vemo {

/// From the coordinates of an instance to those of the model, row by row.
using InstanceTransform = std::array<double, 16>;

/// One transform for each instance. All are finite and invertible.
using InstanceTransforms = std::vector<InstanceTransform>;

/// Null for a single instance that is not transformed.
using SharedInstanceTransforms = std::shared_ptr<const InstanceTransforms>;

/// A transformed point; null is the identity.
VEMO_RESOLVE_EXPORT Vector3 transformedPoint(const InstanceTransform* transform, const Vector3& point);

/// Calls visit(const InstanceTransform*) for each instance, with null for one
/// that is not transformed.
template <class Visit>
void forEachInstance(const SharedInstanceTransforms& transforms, Visit&& visit) {
  if (transforms == nullptr) {
    visit(static_cast<const InstanceTransform*>(nullptr));
    return;
  }
  for (const InstanceTransform& transform : *transforms) {
    visit(&transform);
  }
}

}  // namespace vemo
