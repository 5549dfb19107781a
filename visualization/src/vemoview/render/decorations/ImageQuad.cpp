#include "vemoview/render/decorations/ImageQuad.h"

#include "vemoview/render/resources/CanvasResources.h"
#include "vemoview/render/vtk/ClippedInput.h"
#include "vemoview/render/vtk/Matrix.h"
#include "vemoview/render/vtk/MeshActor.h"
#include "vemoview/render/vtk/PropGroup.h"
#include <vemo/base/Vector.h>
#include <vemo/resolve/Decoration.h>

#include <vtkActor2D.h>
#include <vtkCellArray.h>
#include <vtkCoordinate.h>
#include <vtkDataArray.h>
#include <vtkFloatArray.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkPolyDataMapper2D.h>
#include <vtkProperty.h>
#include <vtkProperty2D.h>
#include <vtkTexture.h>
#include <vtkTexturedActor2D.h>

#include <utility>

namespace vemo {

namespace {

/// A parallelogram with an image spread over it once.
vtkSmartPointer<vtkPolyData> makeQuad(const Vector3& corner, const Vector3& x, const Vector3& y) {
  vtkNew<vtkPoints> points;
  points->SetDataTypeToDouble();
  vtkNew<vtkFloatArray> textureCoordinates;
  textureCoordinates->SetNumberOfComponents(2);
  for (const auto& [s, t] : {std::pair(0.0, 0.0), {1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}}) {
    points->InsertNextPoint(corner[0] + s * x[0] + t * y[0], corner[1] + s * x[1] + t * y[1],
                            corner[2] + s * x[2] + t * y[2]);
    textureCoordinates->InsertNextTuple2(s, t);
  }
  vtkNew<vtkCellArray> faces;
  faces->InsertNextCell({0, 1, 2, 3});
  auto quad = vtkSmartPointer<vtkPolyData>::New();
  quad->SetPoints(points);
  quad->SetPolys(faces);
  quad->GetPointData()->SetTCoords(textureCoordinates);
  return quad;
}

void addToModel(const ImageDecoration& image, vtkPolyData* quad, CanvasResources& resources,
                PropGroup& group) {
  vtkNew<vtkPolyDataMapper> mapper;
  if (image.isClipped) {
    setClippedInput(*mapper, *quad, *resources.clipPlanes, image.transform ? &*image.transform : nullptr);
  } else {
    mapper->SetInputData(quad);
  }
  vtkNew<MeshActor> actor;
  actor->setLayer(MeshActor::Layer::IMAGES);
  actor->setBehind(resources.widestLines);
  actor->SetMapper(mapper);
  actor->SetTexture(resources.textures.get(image));
  actor->GetProperty()->LightingOff();
  actor->GetProperty()->SetOpacity(image.opacity);
  if (image.transform) {
    actor->SetUserMatrix(toMatrix(*image.transform));
  }
  group.add(actor);
}

void addToWindow(const ImageDecoration& image, vtkPolyData* quad, CanvasResources& resources,
                 PropGroup& group) {
  vtkNew<vtkCoordinate> fractions;
  fractions->SetCoordinateSystemToNormalizedViewport();
  vtkNew<vtkPolyDataMapper2D> mapper;
  mapper->SetInputData(quad);
  mapper->SetTransformCoordinate(fractions);
  vtkNew<vtkTexturedActor2D> actor;
  actor->SetMapper(mapper);
  actor->SetTexture(resources.textures.get(image));
  actor->GetProperty()->SetOpacity(image.opacity);
  actor->PickableOff();
  group.add(actor);
}

}  // namespace

void addImage(const ImageDecoration& image, CanvasResources& resources, PropGroup& group) {
  const auto quad = makeQuad(image.corner, image.xAxis, image.yAxis);
  if (image.isInModel) {
    addToModel(image, quad, resources, group);
  } else {
    addToWindow(image, quad, resources, group);
  }
}

}  // namespace vemo
