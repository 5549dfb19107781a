#include "vemoview/render/decorations/Triad.h"

#include "vemoview/render/decorations/TextLabel.h"
#include "vemoview/render/resources/CanvasResources.h"
#include "vemoview/render/vtk/MeshActor.h"
#include "vemoview/render/vtk/PropGroup.h"
#include "vemoview/render/vtk/Screen.h"
#include "vemoview/render/vtk/View.h"
#include "vemoview/resolve/decorations/TriadResolver.h"
#include <vemo/base/Vector.h>
#include <vemo/resolve/Decoration.h>

#include <vtkAppendPolyData.h>
#include <vtkArrowSource.h>
#include <vtkCamera.h>
#include <vtkCellData.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkPolyDataNormals.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkTransform.h>
#include <vtkTransformPolyDataFilter.h>
#include <vtkUnsignedCharArray.h>

#include <array>
#include <memory>
#include <vector>

namespace vemo {

namespace {

/// An arrow of length 1 along an axis.
vtkSmartPointer<vtkPolyData> makeArrow(int axis, const std::array<unsigned char, 3>& color) {
  vtkNew<vtkArrowSource> source;
  source->SetShaftResolution(32);
  source->SetTipResolution(32);
  source->SetShaftRadius(0.035);
  source->SetTipRadius(0.095);
  source->SetTipLength(0.3);
  vtkNew<vtkTransform> turn;
  if (axis == 1) {
    turn->RotateZ(90.0);
  } else if (axis == 2) {
    turn->RotateY(-90.0);
  }
  vtkNew<vtkTransformPolyDataFilter> turned;
  turned->SetTransform(turn);
  turned->SetInputConnection(source->GetOutputPort());
  vtkNew<vtkPolyDataNormals> smoothed;
  smoothed->SetInputConnection(turned->GetOutputPort());
  smoothed->Update();
  vtkSmartPointer<vtkPolyData> arrow = smoothed->GetOutput();
  vtkNew<vtkUnsignedCharArray> colors;
  colors->SetNumberOfComponents(3);
  colors->SetNumberOfTuples(arrow->GetNumberOfCells());
  for (int channel = 0; channel < 3; ++channel) {
    colors->FillComponent(channel, color[static_cast<std::size_t>(channel)]);
  }
  arrow->GetCellData()->SetScalars(colors);
  return arrow;
}

vtkSmartPointer<vtkPolyDataMapper> makeArrows() {
  constexpr std::array<std::array<unsigned char, 3>, 3> COLORS = {
      {{218, 36, 36}, {26, 152, 40}, {36, 84, 214}}};
  vtkNew<vtkAppendPolyData> all;
  for (int axis = 0; axis < 3; ++axis) {
    all->AddInputData(makeArrow(axis, COLORS[static_cast<std::size_t>(axis)]));
  }
  all->Update();
  auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
  mapper->SetInputData(all->GetOutput());
  return mapper;
}

/// All triads of a canvas share their arrows.
vtkSmartPointer<MeshActor> makeActor(CanvasResources& resources) {
  if (resources.arrows == nullptr) {
    resources.arrows = makeArrows();
  }
  auto actor = vtkSmartPointer<MeshActor>::New();
  actor->SetMapper(resources.arrows);
  actor->GetProperty()->SetAmbient(0.35);
  actor->GetProperty()->SetDiffuse(0.7);
  return actor;
}

using Axes = std::array<Vector3, 3>;

Vector3 turned(vtkMatrix4x4& matrix, const Vector3& direction) {
  Vector<4, double> result{direction[0], direction[1], direction[2], 0.0};
  matrix.MultiplyPoint(result.data(), result.data());
  return {result[0], result[1], result[2]};
}

/// The camera that a triad turns with, or null.
vtkSmartPointer<vtkCamera> cameraOf(const TriadDecoration& triad, const CanvasCameras& cameras) {
  if (!triad.camera) {
    return nullptr;
  }
  if (const auto* const canvas = std::get_if<std::size_t>(&*triad.camera)) {
    return cameras[*canvas];
  }
  auto camera = vtkSmartPointer<vtkCamera>::New();
  pointCamera(*camera, std::get<CanvasCamera>(*triad.camera));
  return camera;
}

/// A triad that is moved before each drawing.
class MovedTriad {
 public:
  MovedTriad(const TriadDecoration& triad, const CanvasCameras& cameras, CanvasResources& resources,
             PropGroup& group)
      : _triad(triad), _actor(makeActor(resources)), _camera(cameraOf(triad, cameras)) {
    if (triad.labels) {
      for (const std::string& text : *triad.labels) {
        _labels.emplace_back(
            text, triad.style,
            TextAlignment{TextDecoration::Horizontal::CENTER, TextDecoration::Vertical::CENTER}, group);
      }
    }
    // Until the size on the screen is known, the triad counts as a point.
    setMatrix(triad.hasScreenSize ? TriadDecoration::UNSEEN_LENGTH : TriadDecoration::LENGTH, triad.axes);
    group.add(_actor);
  }

  void update(vtkRenderer& renderer) {
    const auto [labelHeight, axisLength] = drawnSize(
        _triad, {windowHeight(renderer), sizeInPixels(renderer), pixelsPerUnit(renderer, _triad.position)});
    const Axes axes = _camera != nullptr ? followed(renderer) : _triad.axes;
    setMatrix(axisLength, axes);
    if (_triad.hasScreenSize) {
      renderer.ResetCameraClippingRange();
    }
    for (std::size_t axis = 0; axis < _labels.size(); ++axis) {
      Vector3 position = _triad.position;
      for (std::size_t i = 0; i < 3; ++i) {
        position[i] += TriadDecoration::LABEL_POSITION * axisLength * axes[axis][i];
      }
      _labels[axis].setLineHeight(labelHeight, renderer);
      _labels[axis].moveTo(position, renderer);
      if (isBehindViewer(renderer, _triad.position)) {
        _labels[axis].hide();
      }
    }
  }

 private:
  /// The directions that look in this view as the triad's look in the camera's.
  Axes followed(vtkRenderer& renderer) const {
    vtkNew<vtkMatrix4x4> turn;
    vtkMatrix4x4::Transpose(renderer.GetActiveCamera()->GetViewTransformMatrix(), turn);
    vtkMatrix4x4& view = *_camera->GetViewTransformMatrix();
    Axes axes = _triad.axes;
    for (Vector3& axis : axes) {
      axis = turned(*turn, turned(view, axis));
    }
    return axes;
  }

  void setMatrix(double axisLength, const Axes& axes) {
    vtkNew<vtkMatrix4x4> matrix;
    for (int row = 0; row < 3; ++row) {
      const auto i = static_cast<std::size_t>(row);
      matrix->SetElement(row, 0, axisLength * axes[0][i]);
      matrix->SetElement(row, 1, axisLength * axes[1][i]);
      matrix->SetElement(row, 2, axisLength * axes[2][i]);
      matrix->SetElement(row, 3, _triad.position[i]);
    }
    _actor->SetUserMatrix(matrix);
    _actor->setMirrored(matrix->Determinant() < 0.0);
  }

  TriadDecoration _triad;
  vtkSmartPointer<MeshActor> _actor;
  vtkSmartPointer<vtkCamera> _camera;
  std::vector<TextLabel> _labels;
};

}  // namespace

void addTriad(const TriadDecoration& triad, const CanvasCameras& cameras, CanvasResources& resources,
              PropGroup& group) {
  const auto moved = std::make_shared<MovedTriad>(triad, cameras, resources, group);
  group.beforeEachRender([moved](vtkRenderer& drawn) { moved->update(drawn); });
}

}  // namespace vemo
