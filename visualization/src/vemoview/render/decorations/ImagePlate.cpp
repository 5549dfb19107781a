#include "vemoview/render/decorations/ImagePlate.h"

#include "vemoview/render/draw/PropGroup.h"
#include "vemoview/render/resolve/Placements.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/drawables/Overlays.h>

#include <vtkActor.h>
#include <vtkActor2D.h>
#include <vtkCellArray.h>
#include <vtkCoordinate.h>
#include <vtkDataArray.h>
#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkMath.h>
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

#include <algorithm>
#include <cmath>
#include <utility>

namespace vemo {

namespace {

/// Larger than any that OpenGL takes.
constexpr std::int32_t LARGEST = 16384;

vtkSmartPointer<vtkTexture> makeTexture(const lum::ImageAttributes& image) {
  vtkNew<vtkImageData> pixels;
  pixels->SetDimensions(image.getWidth(), image.getHeight(), 1);
  pixels->GetPointData()->SetScalars(image.getPixels());
  auto texture = vtkSmartPointer<vtkTexture>::New();
  texture->SetInputData(pixels);
  // Bytes are colours already, grey ones too.
  texture->SetColorModeToDirectScalars();
  texture->InterpolateOn();
  texture->RepeatOff();
  texture->EdgeClampOn();
  return texture;
}

/// A parallelogram over which an image is spread once.
vtkSmartPointer<vtkPolyData> makePlate(const Vector3& corner, const Vector3& x, const Vector3& y) {
  vtkNew<vtkPoints> points;
  points->SetDataTypeToDouble();
  vtkNew<vtkFloatArray> places;
  places->SetNumberOfComponents(2);
  for (const auto& [s, t] : {std::pair(0.0, 0.0), {1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}}) {
    points->InsertNextPoint(corner[0] + s * x[0] + t * y[0], corner[1] + s * x[1] + t * y[1],
                            corner[2] + s * x[2] + t * y[2]);
    places->InsertNextTuple2(s, t);
  }
  vtkNew<vtkCellArray> faces;
  faces->InsertNextCell({0, 1, 2, 3});
  auto plate = vtkSmartPointer<vtkPolyData>::New();
  plate->SetPoints(points);
  plate->SetPolys(faces);
  plate->GetPointData()->SetTCoords(places);
  return plate;
}

void addToModel(vtkPolyData* plate, vtkTexture* texture, double opacity, const double* placement,
                PropGroup& group) {
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputData(plate);
  vtkNew<vtkActor> actor;
  actor->SetMapper(mapper);
  actor->SetTexture(texture);
  actor->GetProperty()->LightingOff();
  actor->GetProperty()->SetOpacity(opacity);
  if (placement != nullptr) {
    actor->SetUserMatrix(toMatrix(placement));
  }
  group.add(actor);
}

void addToWindow(vtkPolyData* plate, vtkTexture* texture, double opacity, PropGroup& group) {
  vtkNew<vtkCoordinate> fractions;
  fractions->SetCoordinateSystemToNormalizedViewport();
  vtkNew<vtkPolyDataMapper2D> mapper;
  mapper->SetInputData(plate);
  mapper->SetTransformCoordinate(fractions);
  vtkNew<vtkTexturedActor2D> actor;
  actor->SetMapper(mapper);
  actor->SetTexture(texture);
  actor->GetProperty()->SetOpacity(opacity);
  actor->PickableOff();
  group.add(actor);
}

/// In a window the axes have no depth.
bool spansSomething(const Vector3& corner, const Vector3& x, const Vector3& y) {
  Vector3 normal;
  vtkMath::Cross(x.data(), y.data(), normal.data());
  return std::isfinite(length(normal)) && length(normal) > 0.0 && std::isfinite(length(corner));
}

}  // namespace

void addImage(const lum::ImageDrawable& image, const double* placement, PropGroup& group) {
  const auto* const attributes = image.findAttributes<lum::ImageAttributes>();
  if (attributes == nullptr || attributes->getPixels() == nullptr) {
    return;
  }
  if (!attributes->isSound() || std::max(attributes->getWidth(), attributes->getHeight()) > LARGEST) {
    VEMO_LOG_WARNING("The image \"" << image.getName() << "\" is not drawn: its pixels are no "
                                    << attributes->getWidth() << " x " << attributes->getHeight());
    return;
  }
  const auto* const place = image.findAttributes<lum::PositionAttributes>();
  const auto* const colors = image.findAttributes<lum::ColorAttributes>();
  const double told = colors != nullptr ? colors->getOpacity() : 1.0;
  const double opacity = std::isfinite(told) ? std::clamp(told, 0.0, 1.0) : 1.0;
  const bool isInModel = attributes->getCoordinateSpace() == lum::CoordinateSpace::MODEL;
  Vector3 corner = place != nullptr ? place->getPosition() : Vector3{};
  Vector3 x = attributes->getXAxis();
  Vector3 y = attributes->getYAxis();
  if (!isInModel) {
    corner[2] = x[2] = y[2] = 0.0;
  }
  if (opacity <= 0.0 || !spansSomething(corner, x, y)) {
    return;
  }
  const auto plate = makePlate(corner, x, y);
  if (isInModel) {
    addToModel(plate, makeTexture(*attributes), opacity, placement, group);
  } else {
    addToWindow(plate, makeTexture(*attributes), opacity, group);
  }
}

}  // namespace vemo
