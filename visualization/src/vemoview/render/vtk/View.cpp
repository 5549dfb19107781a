#include "vemoview/render/vtk/View.h"

#include "vemoview/resolve/canvas/ViewVolume.h"
#include <vemo/base/Vector.h>

#include <vtkBoundingBox.h>
#include <vtkCamera.h>
#include <vtkLight.h>
#include <vtkMath.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cmath>

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

CanvasCamera cameraOf(vtkCamera& view) {
  return {CanvasCamera::Viewpoint{toVector(view.GetPosition()), toVector(view.GetFocalPoint()),
                                  toVector(view.GetViewUp())},
          view.GetParallelProjection() != 0, view.GetParallelScale(), view.GetViewAngle()};
}

void frameBox(vtkRenderer& renderer, const Box& box) {
  renderer.ResetCamera(box.low[0], box.high[0], box.low[1], box.high[1], box.low[2], box.high[2]);
}

}  // namespace

void pointCamera(vtkCamera& view, const CanvasCamera& camera) {
  view.SetViewAngle(camera.viewAngle);
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

void fitBox(vtkRenderer& renderer, const Box& box) {
  vtkCamera& view = *renderer.GetActiveCamera();
  pointCamera(view, fitting(cameraOf(view), box, renderer.GetTiledAspectRatio()));
}

Box visibleBounds(vtkRenderer& renderer, Box others) {
  if (const vtkBoundingBox props(renderer.ComputeVisiblePropBounds()); props.IsValid()) {
    others.add(toVector(props.GetMinPoint()));
    others.add(toVector(props.GetMaxPoint()));
  }
  return others;
}

void frameAll(vtkRenderer& renderer, const Box& others) {
  if (const Box box = visibleBounds(renderer, others); !box.isEmpty()) {
    frameBox(renderer, box);
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

void widen(vtkRenderer& renderer, double aspect) {
  const double factor = aspect / renderer.GetTiledAspectRatio();
  if (factor > 1.0) {
    vtkCamera& camera = *renderer.GetActiveCamera();
    const double half = vtkMath::RadiansFromDegrees(camera.GetViewAngle()) / 2.0;
    camera.SetViewAngle(2.0 * vtkMath::DegreesFromRadians(std::atan(std::tan(half) * factor)));
    camera.SetParallelScale(camera.GetParallelScale() * factor);
  }
}

void setLights(vtkRenderer& renderer, const CanvasLights& lights) {
  renderer.AutomaticLightCreationOff();
  for (const auto& light : makeLights(lights)) {
    renderer.AddLight(light);
  }
}

}  // namespace vemo
