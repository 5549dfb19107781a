#include "vemoview/render/vtk/CanvasRenderer.h"

#include <vemo/base/Vector.h>
#include <vemo/resolve/CanvasCamera.h>

#include <vtkCamera.h>
#include <vtkDepthPeelingPass.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkTranslucentPass.h>

#include <algorithm>

namespace vemo {

namespace {

/// From the camera along its direction: negative behind it.
struct Depths {
  double least = 0.0;
  double greatest = 0.0;
};

Depths depthsOf(const double* bounds, vtkCamera& camera) {
  const Vector3 position = toVector(camera.GetPosition());
  const Vector3 direction = toVector(camera.GetDirectionOfProjection());
  Depths depths;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const double* const sides = bounds + 2 * axis;
    const auto [least, greatest] = std::minmax(
        {direction[axis] * (sides[0] - position[axis]), direction[axis] * (sides[1] - position[axis])});
    depths.least += least;
    depths.greatest += greatest;
  }
  return depths;
}

}  // namespace

vtkStandardNewMacro(CanvasRenderer);

CanvasRenderer::CanvasRenderer() {
  peelDepths(*this);
}

void CanvasRenderer::peelDepths(vtkOpenGLRenderer& renderer) {
  constexpr int MAX_LAYERS = 64;
  renderer.SetUseDepthPeeling(1);
  renderer.SetMaximumNumberOfPeels(MAX_LAYERS);
  renderer.SetOcclusionRatio(0.0);
  releasePeeling(renderer);
  // The base class makes a pass of its choice unless there is one, and releases it.
  auto& pass = renderer.*(&CanvasRenderer::DepthPeelingPass);
  pass = vtkDepthPeelingPass::New();
  pass->SetTranslucentPass(vtkNew<vtkTranslucentPass>());
}

void CanvasRenderer::releasePeeling(vtkOpenGLRenderer& renderer) {
  auto& pass = renderer.*(&CanvasRenderer::DepthPeelingPass);
  if (pass == nullptr) {
    return;
  }
  if (vtkWindow* const window = renderer.GetVTKWindow()) {
    pass->ReleaseGraphicsResources(window);
  }
  pass->Delete();
  pass = nullptr;
}

void CanvasRenderer::ResetCameraClippingRange(const double bounds[6]) {
  vtkOpenGLRenderer::ResetCameraClippingRange(bounds);
  showNear(*GetActiveCamera(), bounds);
}

void showNear(vtkCamera& camera, const double* bounds) {
  // Exactly at the near plane, rounding decides whether something is drawn.
  constexpr double ROOM = 0.99;
  const double near = camera.GetClippingRange()[0];
  const double far = camera.GetClippingRange()[1];
  const auto [least, greatest] = depthsOf(bounds, camera);
  if (greatest > 0.0) {
    const double limit = camera.GetParallelProjection() != 0 ? 0.0 : greatest * LEAST_DEPTH;
    camera.SetClippingRange(std::min(near, std::max(ROOM * least, limit)), far);
  }
}

}  // namespace vemo
