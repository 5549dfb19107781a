#include <vemo/resolve/InstanceTransforms.h>

#include <vtkMatrix4x4.h>

namespace vemo {

Vector3 transformedPoint(const InstanceTransform* transform, const Vector3& point) {
  if (transform == nullptr) {
    return point;
  }
  Vector<4, double> result{point[0], point[1], point[2], 1.0};
  vtkMatrix4x4::MultiplyPoint(transform->data(), result.data(), result.data());
  return {result[0], result[1], result[2]};
}

}  // namespace vemo
