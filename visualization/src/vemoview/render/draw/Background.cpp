#include "vemoview/render/draw/Background.h"

#include <vemo/scenegraph/canvas/CanvasAttributes.h>

#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vemo {

namespace {

using Color = Vector<3, double>;
using Mode = lum::BackgroundColorModes;

double channel(double value) {
  return std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : 0.0;
}

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
    // This far in front of the camera (below) is where it stands.
    _points->InsertNextPoint(x, y, 1.0);
    for (const double value : color) {
      _colors->InsertNextValue(static_cast<unsigned char>(std::lround(channel(value) * 255.0)));
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

void addLinear(ColoredFaces& faces, Mode mode, const Color& color1, const Color& color2) {
  const bool isVertical = mode == Mode::TOP_BOTTOM || mode == Mode::BOTTOM_TOP;
  const bool isFirstAtPositiveEnd = mode == Mode::TOP_BOTTOM || mode == Mode::RIGHT_LEFT;
  for (const auto& [x, y] : {std::pair(-1.0, -1.0), {1.0, -1.0}, {1.0, 1.0}, {-1.0, 1.0}}) {
    const bool isAtPositiveEnd = (isVertical ? y : x) > 0.0;
    faces.addCorner(x, y, isAtPositiveEnd == isFirstAtPositiveEnd ? color1 : color2);
  }
  faces.addFace({0, 1, 2, 3});
}

/// A disc through the corners. Its rim has a point in each of them.
void addRadial(ColoredFaces& faces, const Color& color1, const Color& color2) {
  constexpr int SLICES = 256;
  faces.addCorner(0.0, 0.0, color1);
  for (int slice = 0; slice < SLICES; ++slice) {
    const double angle = 2.0 * std::numbers::pi * slice / SLICES;
    faces.addCorner(std::numbers::sqrt2 * std::cos(angle), std::numbers::sqrt2 * std::sin(angle), color2);
    faces.addFace({0, slice + 1, (slice + 1) % SLICES + 1});
  }
}

/// The renderer shows its coordinates as they are, whatever its proportions.
void useOwnCoordinates(vtkRenderer& renderer) {
  vtkCamera& camera = *renderer.GetActiveCamera();
  camera.SetPosition(0.0, 0.0, 1.0);
  camera.SetFocalPoint(0.0, 0.0, 0.0);
  vtkNew<vtkMatrix4x4> identity;
  camera.SetExplicitProjectionTransformMatrix(identity);
  camera.UseExplicitProjectionTransformMatrixOn();
}

}  // namespace

void setBackground(vtkRenderer& renderer, const lum::BackgroundAttributes& background) {
  const Mode mode = background.getColorMode();
  if (mode == Mode::SOLID) {
    const Color& color = background.getSolidColor();
    renderer.SetBackground(channel(color[0]), channel(color[1]), channel(color[2]));
    return;
  }
  ColoredFaces faces;
  if (mode == Mode::RADIAL) {
    addRadial(faces, background.getColor1(), background.getColor2());
  } else {
    addLinear(faces, mode, background.getColor1(), background.getColor2());
  }
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputData(faces.get());
  vtkNew<vtkActor> actor;
  actor->SetMapper(mapper);
  actor->GetProperty()->LightingOff();
  actor->PickableOff();
  renderer.AddActor(actor);
  useOwnCoordinates(renderer);
}

}  // namespace vemo
