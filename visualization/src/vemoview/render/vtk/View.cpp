#include "vemoview/render/vtk/View.h"

#include <vemo/base/Vector.h>

#include <vtkBoundingBox.h>
#include <vtkCamera.h>
#include <vtkLight.h>
#include <vtkNew.h>
#include <vtkRenderer.h>

namespace vemo {

namespace {

void addLight(vtkRenderer& renderer, const DirectionalLight& from) {
  vtkNew<vtkLight> light;
  light->SetLightTypeToCameraLight();
  light->SetColor(from.color[0], from.color[1], from.color[2]);
  light->SetIntensity(from.intensity);
  light->SetDirectionAngle(from.elevation, from.azimuth);
  renderer.AddLight(light);
}

void addHeadlight(vtkRenderer& renderer) {
  vtkNew<vtkLight> light;
  light->SetLightTypeToHeadlight();
  renderer.AddLight(light);
}

}  // namespace

void pointCamera(vtkCamera& view, const CanvasCamera& camera) {
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

void setLights(vtkRenderer& renderer, const CanvasLights& lights) {
  renderer.AutomaticLightCreationOff();
  if (lights.empty()) {
    addHeadlight(renderer);
  }
  for (const DirectionalLight& light : lights) {
    addLight(renderer, light);
  }
}

}  // namespace vemo
