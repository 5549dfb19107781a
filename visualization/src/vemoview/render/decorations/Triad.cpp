#include "vemoview/render/decorations/Triad.h"

#include "vemoview/render/decorations/TextLabel.h"
#include "vemoview/render/draw/PropGroup.h"
#include "vemoview/render/draw/Screen.h"
#include "vemoview/render/draw/View.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <vtkActor.h>
#include <vtkAppendPolyData.h>
#include <vtkArrowSource.h>
#include <vtkCamera.h>
#include <vtkCellData.h>
#include <vtkMath.h>
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

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

namespace vemo {

namespace {

/// In model units, unless the size is one on the screen.
constexpr double LENGTH = 1.5;
/// In axes' lengths.
constexpr double LABEL_PLACE = 1.2;
/// Of an axis, in heights of a label, where the size is one on the screen.
constexpr double LENGTH_IN_LABELS = 3.0;

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

vtkSmartPointer<vtkActor> makeArrows() {
  constexpr std::array<std::array<unsigned char, 3>, 3> COLORS = {
      {{218, 36, 36}, {26, 152, 40}, {36, 84, 214}}};
  vtkNew<vtkAppendPolyData> all;
  for (int axis = 0; axis < 3; ++axis) {
    all->AddInputData(makeArrow(axis, COLORS[static_cast<std::size_t>(axis)]));
  }
  all->Update();
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputData(all->GetOutput());
  auto actor = vtkSmartPointer<vtkActor>::New();
  actor->SetMapper(mapper);
  actor->GetProperty()->SetAmbient(0.35);
  actor->GetProperty()->SetDiffuse(0.7);
  return actor;
}

/// The unit vector; nothing of use becomes the other.
Vector3 unitOr(const Vector3& vector, const Vector3& otherwise) {
  const double norm = length(vector);
  return std::isfinite(norm) && norm > 0.0 ? normalized(vector) : otherwise;
}

/// The directions of the axes, as columns: z forward, y up, x to fit them.
struct Frame {
  Vector3 x{1.0, 0.0, 0.0};
  Vector3 y{0.0, 1.0, 0.0};
  Vector3 z{0.0, 0.0, 1.0};
};

Frame frameOf(const lum::TriadDrawable& triad) {
  Frame frame;
  const auto* const orientation = triad.findAttributes<lum::OrientationAttributes>();
  if (orientation == nullptr) {
    return frame;
  }
  frame.z = unitOr(orientation->getForwardVector(), frame.z);
  const Vector3 up = usableViewUp(orientation->getUpVector(), frame.z);
  vtkMath::Cross(up.data(), frame.z.data(), frame.x.data());
  frame.x = normalized(frame.x);
  vtkMath::Cross(frame.z.data(), frame.x.data(), frame.y.data());
  return frame;
}

Vector3 turned(vtkMatrix4x4& matrix, const Vector3& direction) {
  Vector<4, double> result{direction[0], direction[1], direction[2], 0.0};
  matrix.MultiplyPoint(result.data(), result.data());
  return {result[0], result[1], result[2]};
}

/// A triad, and what it needs to take its place before each drawing.
class PlacedTriad {
 public:
  PlacedTriad(const lum::TriadDrawable& triad, const double* placement, const CameraBook& cameras,
              PropGroup& group)
      : _actor(makeArrows()), _frame(frameOf(triad)) {
    if (const auto* const attributes = triad.findAttributes<lum::TriadAttributes>()) {
      _hasScreenSize = attributes->getUseConstantPixelSize();
      _labelHeight = attributes->getAxisLabelHeight();
      addLabels(*attributes, triad.findAttributes<lum::TextAttributes>(), group);
    }
    if (const auto* const place = triad.findAttributes<lum::PositionAttributes>()) {
      _position = place->getPosition();
    }
    if (placement != nullptr) {
      applyPlacement(placement);
    }
    findCamera(triad.getCameraAttributes(), cameras);
    // Until the size on the screen is known, the triad counts as a point.
    setMatrix(_hasScreenSize ? 1e-6 : LENGTH, _frame);
    group.add(_actor);
  }

  void update(vtkRenderer& renderer) {
    const double canvasHeight = sizeInPixels(renderer)[1];
    // Labels leave room for the axes in a small canvas, too.
    const double labelHeight = std::min(_labelHeight * windowHeight(renderer), 0.16 * canvasHeight);
    const double perUnit = pixelsPerUnit(renderer, _position);
    const double axisLength = !_hasScreenSize ? LENGTH
                              : perUnit > 0.0 ? LENGTH_IN_LABELS * labelHeight / perUnit
                                              : 1e-6;
    const Frame frame = _camera != nullptr ? followed(renderer) : _frame;
    setMatrix(axisLength, frame);
    if (_hasScreenSize) {
      renderer.ResetCameraClippingRange();
    }
    const std::array<Vector3, 3> axes = {frame.x, frame.y, frame.z};
    for (std::size_t axis = 0; axis < _labels.size(); ++axis) {
      Vector3 place = _position;
      for (std::size_t i = 0; i < 3; ++i) {
        place[i] += LABEL_PLACE * axisLength * axes[axis][i];
      }
      _labels[axis].setLineHeight(labelHeight, renderer);
      _labels[axis].moveTo(place, renderer);
    }
  }

 private:
  void addLabels(const lum::TriadAttributes& attributes, const lum::TextAttributes* style, PropGroup& group) {
    for (const std::string& text :
         {attributes.getXAxisLabelText(), attributes.getYAxisLabelText(), attributes.getZAxisLabelText()}) {
      _labels.emplace_back(text, style, TextAlignment{1, 1}, group);
    }
  }

  void applyPlacement(const double* placement) {
    const auto matrix = toMatrix(placement);
    for (Vector3* const axis : {&_frame.x, &_frame.y, &_frame.z}) {
      *axis = unitOr(turned(*matrix, *axis), *axis);
    }
    _position = placed(_position, placement);
  }

  void findCamera(const lum::CameraAttributes* camera, const CameraBook& cameras) {
    if (camera == nullptr) {
      return;
    }
    const auto found = cameras.find(camera);
    if (found != cameras.end()) {
      _camera = found->second;
    } else {
      _camera = vtkSmartPointer<vtkRenderer>::New();
      setCamera(*_camera, camera);
    }
  }

  /// The directions that look from here as the model's axes look from there.
  Frame followed(vtkRenderer& renderer) const {
    vtkNew<vtkMatrix4x4> turn;
    vtkMatrix4x4::Transpose(renderer.GetActiveCamera()->GetViewTransformMatrix(), turn);
    vtkMatrix4x4& view = *_camera->GetActiveCamera()->GetViewTransformMatrix();
    Frame frame = _frame;
    for (Vector3* const axis : {&frame.x, &frame.y, &frame.z}) {
      *axis = turned(*turn, turned(view, *axis));
    }
    return frame;
  }

  void setMatrix(double axisLength, const Frame& frame) {
    vtkNew<vtkMatrix4x4> matrix;
    for (int row = 0; row < 3; ++row) {
      const auto i = static_cast<std::size_t>(row);
      matrix->SetElement(row, 0, axisLength * frame.x[i]);
      matrix->SetElement(row, 1, axisLength * frame.y[i]);
      matrix->SetElement(row, 2, axisLength * frame.z[i]);
      matrix->SetElement(row, 3, _position[i]);
    }
    _actor->SetUserMatrix(matrix);
  }

  vtkSmartPointer<vtkActor> _actor;
  Frame _frame;
  Vector3 _position;
  bool _hasScreenSize = true;
  double _labelHeight = 0.05;
  std::vector<TextLabel> _labels;
  /// Looks through the camera that the triad turns with; null when with none.
  vtkSmartPointer<vtkRenderer> _camera;
};

}  // namespace

void addTriad(const lum::TriadDrawable& triad, const double* placement, const CameraBook& cameras,
              PropGroup& group) {
  const auto* const place = triad.findAttributes<lum::PositionAttributes>();
  if (place != nullptr && !std::isfinite(length(place->getPosition()))) {
    return;
  }
  const auto placed = std::make_shared<PlacedTriad>(triad, placement, cameras, group);
  group.beforeEachRender([placed](vtkRenderer& drawn) { placed->update(drawn); });
}

}  // namespace vemo
