#include <vemo/base/Vector.h>
#include <vemo/resolve/PickRay.h>

#include <vtkMath.h>

#include <cmath>

namespace vemo {

namespace {

/// From -1 to 1 over the view, both ways.
std::optional<Vector<2, double>> positionWithin(const PickView& view, const Vector<2, double>& pixel) {
  Vector<2, double> position;
  for (std::size_t i = 0; i < position.size(); ++i) {
    position[i] = 2.0 * (pixel[i] - view.lowerLeft[i]) / view.size[i] - 1.0;
    if (!(std::abs(position[i]) <= 1.0)) {
      return std::nullopt;
    }
  }
  return position;
}

}  // namespace

std::optional<PickRay> PickRay::through(const PickView& view, const Vector<2, double>& pixel) {
  const auto position = positionWithin(view, pixel);
  if (!position) {
    return std::nullopt;
  }
  const Vector3 right = normalized(cross(view.forward, view.viewUp));
  const Vector3 up = cross(right, view.forward);
  const Vector3 aside = ((*position)[0] * view.size[0] / view.size[1]) * right + (*position)[1] * up;
  PickRay ray;
  ray.origin = view.position;
  if (view.isParallel) {
    ray.origin = ray.origin + view.parallelScale * aside;
    ray.direction = view.forward;
    ray.pixelAtOrigin = 2.0 * view.parallelScale / view.size[1];
  } else {
    const double slope = std::tan(vtkMath::RadiansFromDegrees(view.viewAngle) / 2.0);
    ray.direction = normalized(view.forward + slope * aside);
    ray.pixelGrowth = 2.0 * slope / view.size[1] * dot(ray.direction, view.forward);
  }
  return ray;
}

}  // namespace vemo
