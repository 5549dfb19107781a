#include "vemoview/render/vtk/PeelingRenderer.h"

#include <vtkDepthPeelingPass.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkTranslucentPass.h>

namespace vemo {

vtkStandardNewMacro(PeelingRenderer);

PeelingRenderer::PeelingRenderer() {
  constexpr int MAX_LAYERS = 64;
  SetUseDepthPeeling(1);
  SetMaximumNumberOfPeels(MAX_LAYERS);
  SetOcclusionRatio(0.0);
  // The base class makes a pass of its choice unless there is one, and releases it.
  DepthPeelingPass = vtkDepthPeelingPass::New();
  DepthPeelingPass->SetTranslucentPass(vtkNew<vtkTranslucentPass>());
}

}  // namespace vemo
