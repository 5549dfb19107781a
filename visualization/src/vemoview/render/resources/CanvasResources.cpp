#include "vemoview/render/resources/CanvasResources.h"

#include "vemoview/common/VtkForms.h"
#include "vemoview/render/vtk/CanvasRenderer.h"

#include <vtkCullerCollection.h>
#include <vtkNew.h>
#include <vtkPlane.h>

namespace vemo {

namespace {

vtkSmartPointer<vtkPlaneCollection> makePlanes(const std::vector<ClipPlane>& clipPlanes) {
  auto planes = vtkSmartPointer<vtkPlaneCollection>::New();
  for (const ClipPlane& clipPlane : clipPlanes) {
    vtkNew<vtkPlane> plane;
    setVtkPlane(*plane, clipPlane.origin, clipPlane.normal);
    planes->AddItem(plane);
  }
  return planes;
}

}  // namespace

vtkSmartPointer<vtkRenderer> makeRenderer(const ResolvedCanvas& canvas) {
  const auto renderer = vtkSmartPointer<CanvasRenderer>::New();
  renderer->SetViewport(canvas.lowerLeft[0], canvas.lowerLeft[1], canvas.upperRight[0], canvas.upperRight[1]);
  renderer->SetInteractive(canvas.isInteractive);
  // They would cull what has no extent, such as a single point.
  renderer->GetCullers()->RemoveAllItems();
  return renderer;
}

CanvasResources makeResources(const ResolvedCanvas& canvas, vtkRenderer& renderer) {
  CanvasResources resources;
  resources.renderer = &renderer;
  resources.clipPlanes = makePlanes(canvas.clipPlanes);
  resources.widestLines = std::make_shared<const WidestLines>(renderer);
  resources.queue = std::make_shared<DrawQueue>();
  return resources;
}

}  // namespace vemo
