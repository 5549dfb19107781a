#include "vemoview/render/vtk/CanvasRenderer.h"

#include <vtkCamera.h>
#include <vtkDepthPeelingPass.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkTranslucentPass.h>

namespace vemo {

vtkStandardNewMacro(CanvasRenderer);

CanvasRenderer::CanvasRenderer() {
  constexpr int MAX_LAYERS = 64;
  SetUseDepthPeeling(1);
  SetMaximumNumberOfPeels(MAX_LAYERS);
  SetOcclusionRatio(0.0);
  // The base class makes a pass of its choice unless there is one, and releases it.
  DepthPeelingPass = vtkDepthPeelingPass::New();
  DepthPeelingPass->SetTranslucentPass(vtkNew<vtkTranslucentPass>());
}

void CanvasRenderer::ResetCameraClippingRange(const double bounds[6]) {
  vtkOpenGLRenderer::ResetCameraClippingRange(bounds);
  // VTK's own limit is 0.01 or less. So the precision of depths is nearly the same.
  constexpr double NEAR = 0.011;
  vtkCamera& camera = *GetActiveCamera();
  const double* const range = camera.GetClippingRange();
  if (camera.GetParallelProjection() != 0 && range[0] < NEAR * range[1]) {
    camera.SetClippingRange(0.0, range[1]);
  }
}

}  // namespace vemo
