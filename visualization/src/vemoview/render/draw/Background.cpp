#include "vemoview/render/draw/Background.h"

#include <vtkActor.h>
#include <vtkCellArray.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLCamera.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkUnsignedCharArray.h>

#include <array>
#include <cmath>
#include <numbers>

namespace vemo {

namespace {

using Color = Vector3;

/// Corners with colours, in coordinates that go from -1 to 1 over the renderer
/// in both directions.
class ColoredFaces {
 public:
  ColoredFaces() {
    _colors->SetNumberOfComponents(3);
    _faces->SetPoints(_points);
    _faces->SetPolys(_cells);
    _faces->GetPointData()->SetScalars(_colors);
  }

  void addCorner(double x, double y, const Color& color) {
    _points->InsertNextPoint(x, y, 0.0);
    for (const double value : color) {
      _colors->InsertNextValue(static_cast<unsigned char>(std::lround(value * 255.0)));
    }
  }
  void addFace(std::initializer_list<vtkIdType> corners) { _cells->InsertNextCell(corners); }

  vtkPolyData* get() { return _faces; }

 private:
  vtkNew<vtkPoints> _points;
  vtkNew<vtkUnsignedCharArray> _colors;
  vtkNew<vtkCellArray> _cells;
  vtkNew<vtkPolyData> _faces;
};

void addFaces(const LinearBackground& background, ColoredFaces& faces) {
  constexpr std::array<std::array<double, 2>, 4> CORNERS{
      {{-1.0, -1.0}, {1.0, -1.0}, {1.0, 1.0}, {-1.0, 1.0}}};
  for (std::size_t i = 0; i < CORNERS.size(); ++i) {
    faces.addCorner(CORNERS[i][0], CORNERS[i][1], background.corners[i]);
  }
  faces.addFace({0, 1, 2, 3});
}

/// A disc through the corners. Its rim has a point in each of them.
void addFaces(const RadialBackground& background, ColoredFaces& faces) {
  constexpr int SLICES = 256;
  faces.addCorner(0.0, 0.0, background.center);
  for (int slice = 0; slice < SLICES; ++slice) {
    const double angle = 2.0 * std::numbers::pi * slice / SLICES;
    faces.addCorner(std::numbers::sqrt2 * std::cos(angle), std::numbers::sqrt2 * std::sin(angle),
                    background.corners);
    faces.addFace({0, slice + 1, (slice + 1) % SLICES + 1});
  }
}

/// Shows all coordinates from -1 to 1, whatever the proportions of the renderer. A class, since
/// vtkWindowToImageFilter draws parts of the picture with new instances of the cameras, to which it
/// does not copy an explicit projection.
class CameraOfSquare final : public vtkOpenGLCamera {
 public:
  static CameraOfSquare* New();

  using vtkOpenGLCamera::GetProjectionTransformMatrix;

  vtkMatrix4x4* GetProjectionTransformMatrix(double /*aspect*/, double nearest, double farthest) override {
    constexpr double SQUARE = 1.0;
    return vtkOpenGLCamera::GetProjectionTransformMatrix(SQUARE, nearest, farthest);
  }

 protected:
  vtkObjectBase* NewInstanceInternal() const override { return New(); }

 private:
  CameraOfSquare() {
    ParallelProjectionOn();
    SetParallelScale(1.0);
    SetClippingRange(0.5, 1.5);
  }
};

vtkStandardNewMacro(CameraOfSquare);

void addActor(vtkRenderer& renderer, ColoredFaces& faces) {
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputData(faces.get());
  vtkNew<vtkActor> actor;
  actor->SetMapper(mapper);
  actor->GetProperty()->LightingOff();
  actor->PickableOff();
  renderer.AddActor(actor);
  renderer.SetActiveCamera(vtkNew<CameraOfSquare>());
}

void apply(vtkRenderer& renderer, const SolidBackground& background) {
  renderer.SetBackground(background.color.data());
}

template <class Gradient>
void apply(vtkRenderer& renderer, const Gradient& background) {
  ColoredFaces faces;
  addFaces(background, faces);
  addActor(renderer, faces);
}

}  // namespace

void setBackground(vtkRenderer& renderer, const Background& background) {
  std::visit([&](const auto& kind) { apply(renderer, kind); }, background);
}

}  // namespace vemo
