#include "vemoview/render/pick/SightLine.h"

#include "vemoview/render/draw/Screen.h"

#include <vtkCamera.h>
#include <vtkMath.h>
#include <vtkRenderer.h>

#include <cmath>

namespace vemo {

namespace {

/// From -1 to 1 over the renderer's part of the window, both ways.
std::optional<Vector<2, double>> placeWithin(vtkRenderer& renderer, const Vector<2, double>& pixel) {
  const int* const corner = renderer.GetOrigin();
  const Vector<2, double> size = sizeInPixels(renderer);
  Vector<2, double> place;
  for (std::size_t i = 0; i < place.size(); ++i) {
    place[i] = 2.0 * (pixel[i] - corner[i]) / size[i] - 1.0;
    if (!(std::abs(place[i]) <= 1.0)) {
      return std::nullopt;
    }
  }
  return place;
}

}  // namespace

std::optional<SightLine> SightLine::through(vtkRenderer& renderer, const Vector<2, double>& pixel) {
  const auto place = placeWithin(renderer, pixel);
  if (!place) {
    return std::nullopt;
  }
  vtkCamera& camera = *renderer.GetActiveCamera();
  const Vector<2, double> size = sizeInPixels(renderer);
  const Vector3 forward = toVector(camera.GetDirectionOfProjection());
  const Vector3 right = normalized(cross(forward, toVector(camera.GetViewUp())));
  const Vector3 up = cross(right, forward);
  const Vector3 aside = ((*place)[0] * size[0] / size[1]) * right + (*place)[1] * up;
  SightLine line;
  line.origin = toVector(camera.GetPosition());
  if (camera.GetParallelProjection() != 0) {
    const double halfHeight = camera.GetParallelScale();
    line.origin = line.origin + halfHeight * aside;
    line.direction = forward;
    line.pixelAtOrigin = 2.0 * halfHeight / size[1];
  } else {
    const double slope = std::tan(vtkMath::RadiansFromDegrees(camera.GetViewAngle()) / 2.0);
    line.direction = normalized(forward + slope * aside);
    line.pixelGrowth = 2.0 * slope / size[1] * dot(line.direction, forward);
  }
  return line;
}

}  // namespace vemo
