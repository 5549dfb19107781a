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

/// Of a box, from the camera along its direction; negative for one that is partly behind.
double leastDepth(const double* bounds, vtkCamera& camera) {
  const Vector3 position = toVector(camera.GetPosition());
  const Vector3 direction = toVector(camera.GetDirectionOfProjection());
  double depth = 0.0;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const double* const sides = bounds + 2 * axis;
    depth += std::min(direction[axis] * (sides[0] - position[axis]),
                      direction[axis] * (sides[1] - position[axis]));
  }
  return depth;
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
  const double near = camera.GetClippingRange()[0];
  const double far = camera.GetClippingRange()[1];
  const double depth = leastDepth(bounds, camera);
  if (depth < near) {
    const double nearest = camera.GetParallelProjection() != 0 ? 0.0 : std::max(depth, far * LEAST_DEPTH);
    camera.SetClippingRange(std::min(near, nearest), far);
  }
}

}  // namespace vemo
