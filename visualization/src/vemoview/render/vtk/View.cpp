#include "vemoview/render/vtk/View.h"

#include <vemo/base/Vector.h>

#include <vtkBoundingBox.h>
#include <vtkCamera.h>
#include <vtkLight.h>
#include <vtkRenderer.h>

namespace vemo {

namespace {

vtkSmartPointer<vtkLight> makeLight(const DirectionalLight& from) {
  auto light = vtkSmartPointer<vtkLight>::New();
  light->SetLightTypeToCameraLight();
  light->SetColor(from.color[0], from.color[1], from.color[2]);
  light->SetIntensity(from.intensity);
  light->SetDirectionAngle(from.elevation, from.azimuth);
  return light;
}

vtkSmartPointer<vtkLight> makeHeadlight() {
  auto light = vtkSmartPointer<vtkLight>::New();
  light->SetLightTypeToHeadlight();
  return light;
}

}  // namespace

void pointCamera(vtkCamera& view, const CanvasCamera& camera) {
  // Of a perspective camera, from top to bottom.
  constexpr double DEGREES = 30.0;
  view.SetViewAngle(DEGREES);
  view.SetParallelProjection(camera.isParallel);
  if (camera.viewpoint) {
    view.SetPosition(camera.viewpoint->position.data());
    view.SetFocalPoint(camera.viewpoint->focalPoint.data());
    view.SetViewUp(camera.viewpoint->viewUp.data());
  } else {
    view.SetPosition(0.0, 0.0, 1.0);
    view.SetFocalPoint(0.0, 0.0, 0.0);
    view.SetViewUp(0.0, 1.0, 0.0);
  }
  if (camera.isParallel && camera.parallelScale) {
    view.SetParallelScale(*camera.parallelScale);
  }
}

void frameAll(vtkRenderer& renderer, Box others) {
  if (const vtkBoundingBox props(renderer.ComputeVisiblePropBounds()); props.IsValid()) {
    others.add(toVector(props.GetMinPoint()));
    others.add(toVector(props.GetMaxPoint()));
  }
  if (!others.isEmpty()) {
    renderer.ResetCamera(others.low[0], others.high[0], others.low[1], others.high[1], others.low[2],
                         others.high[2]);
  }
}

void setCamera(vtkRenderer& renderer, const CanvasCamera& camera, const Box& others) {
  pointCamera(*renderer.GetActiveCamera(), camera);
  if (camera.framesAll()) {
    frameAll(renderer, others);
  }
  renderer.ResetCameraClippingRange();
}

std::vector<vtkSmartPointer<vtkLight>> makeLights(const CanvasLights& lights) {
  if (lights.empty()) {
    return {makeHeadlight()};
  }
  std::vector<vtkSmartPointer<vtkLight>> result;
  for (const DirectionalLight& light : lights) {
    result.push_back(makeLight(light));
  }
  return result;
}

void setLights(vtkRenderer& renderer, const CanvasLights& lights) {
  renderer.AutomaticLightCreationOff();
  for (const auto& light : makeLights(lights)) {
    renderer.AddLight(light);
  }
}

}  // namespace vemo
