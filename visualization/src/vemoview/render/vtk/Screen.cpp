#include "vemoview/render/vtk/Screen.h"

#include <vemo/base/Vector.h>

#include <vtkCamera.h>
#include <vtkInformation.h>
#include <vtkInformationDoubleVectorKey.h>
#include <vtkMath.h>
#include <vtkMatrix4x4.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <array>
#include <cmath>

namespace vemo {

namespace {

constexpr std::array<double, 4> WHOLE_WINDOW{0.0, 0.0, 1.0, 1.0};

vtkInformationDoubleVectorKey& scenePartKey() {
  static auto* const key =
      vtkInformationDoubleVectorKey::MakeKey("SCENE_PART", "vemo", static_cast<int>(WHOLE_WINDOW.size()));
  return *key;
}

}  // namespace

Vector<2, double> sizeInPixels(vtkRenderer& renderer) {
  const int* const size = renderer.GetSize();
  return {static_cast<double>(size[0]), static_cast<double>(size[1])};
}

Vector<2, double> windowSize(vtkRenderer& renderer) {
  if (renderer.GetRenderWindow() == nullptr) {
    return {};
  }
  const int* const size = renderer.GetRenderWindow()->GetSize();
  vtkInformation& information = *renderer.GetInformation();
  const double* const part =
      information.Has(&scenePartKey()) != 0 ? information.Get(&scenePartKey()) : WHOLE_WINDOW.data();
  return {(part[2] - part[0]) * size[0], (part[3] - part[1]) * size[1]};
}

void setScenePart(vtkRenderer& renderer, const double* part) {
  renderer.GetInformation()->Set(&scenePartKey(), part, static_cast<int>(WHOLE_WINDOW.size()));
}

void removeScenePart(vtkRenderer& renderer) {
  renderer.GetInformation()->Remove(&scenePartKey());
}

double windowHeight(vtkRenderer& renderer) {
  return windowSize(renderer)[1];
}

bool isBehindViewer(vtkRenderer& renderer, const Vector3& point) {
  vtkCamera& camera = *renderer.GetActiveCamera();
  return dot(point - toVector(camera.GetPosition()), toVector(camera.GetDirectionOfProjection())) < 0.0;
}

std::optional<Vector<2, double>> project(vtkRenderer& renderer, const Vector3& point) {
  Vector<4, double> place{point[0], point[1], point[2], 1.0};
  renderer.GetActiveCamera()
      ->GetCompositeProjectionTransformMatrix(renderer.GetTiledAspectRatio(), -1.0, 1.0)
      ->MultiplyPoint(place.data(), place.data());
  if (!(place[3] > 0.0)) {
    return std::nullopt;
  }
  const Vector<2, double> size = sizeInPixels(renderer);
  const Vector<2, double> pixel{(place[0] / place[3] + 1.0) / 2.0 * size[0],
                                (place[1] / place[3] + 1.0) / 2.0 * size[1]};
  return std::isfinite(pixel[0]) && std::isfinite(pixel[1]) ? std::optional(pixel) : std::nullopt;
}

double pixelsPerUnit(vtkRenderer& renderer, const Vector3& point) {
  vtkCamera& camera = *renderer.GetActiveCamera();
  double halfHeight = camera.GetParallelScale();
  if (camera.GetParallelProjection() == 0) {
    Vector<4, double> place{point[0], point[1], point[2], 1.0};
    camera.GetViewTransformMatrix()->MultiplyPoint(place.data(), place.data());
    halfHeight = -place[2] * std::tan(vtkMath::RadiansFromDegrees(camera.GetViewAngle()) / 2.0);
  }
  const double result = sizeInPixels(renderer)[1] / (2.0 * halfHeight);
  return std::isfinite(result) && result > 0.0 ? result : 0.0;
}

PickView pickViewOf(vtkRenderer& renderer) {
  const int* const corner = renderer.GetOrigin();
  vtkCamera& camera = *renderer.GetActiveCamera();
  return {{static_cast<double>(corner[0]), static_cast<double>(corner[1])},
          sizeInPixels(renderer),
          toVector(camera.GetPosition()),
          toVector(camera.GetDirectionOfProjection()),
          toVector(camera.GetViewUp()),
          camera.GetParallelProjection() != 0,
          camera.GetParallelScale(),
          camera.GetViewAngle()};
}

}  // namespace vemo
