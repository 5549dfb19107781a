#include "vemoview/render/draw/SelectionHighlight.h"

#include <vtkCamera.h>
#include <vtkOutlineSource.h>
#include <vtkPointSource.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>

namespace vemo {

namespace {

/// Differs from the colours of most tables, on light and on dark backgrounds.
constexpr Vector3 COLOR{1.0, 0.45, 0.0};
constexpr float LINE_WIDTH = 1.5F;
constexpr float MARK_SIZE = 9.0F;

void prepare(vtkActor& actor, vtkRenderer& renderer) {
  vtkNew<vtkPolyDataMapper> mapper;
  actor.SetMapper(mapper);
  actor.VisibilityOff();
  actor.GetProperty()->LightingOff();
  actor.GetProperty()->SetColor(COLOR[0], COLOR[1], COLOR[2]);
  actor.GetProperty()->SetLineWidth(LINE_WIDTH);
  actor.GetProperty()->SetPointSize(MARK_SIZE);
  actor.GetProperty()->RenderPointsAsSpheresOn();
  renderer.AddActor(&actor);
}

}  // namespace

SelectionHighlight::SelectionHighlight(vtkRenderer& model) {
  _renderer->SetActiveCamera(model.GetActiveCamera());
  _renderer->SetViewport(model.GetViewport());
  _renderer->InteractiveOff();
  prepare(*_box, *_renderer);
  prepare(*_mark, *_renderer);
}

void SelectionHighlight::outline(const Box& box) {
  _box->SetVisibility(!box.isEmpty());
  if (!box.isEmpty()) {
    vtkNew<vtkOutlineSource> edges;
    edges->SetBounds(box.low[0], box.high[0], box.low[1], box.high[1], box.low[2], box.high[2]);
    _box->GetMapper()->SetInputConnection(edges->GetOutputPort());
  }
}

void SelectionHighlight::mark(const std::optional<Vector3>& point) {
  _mark->SetVisibility(point.has_value());
  if (point) {
    vtkNew<vtkPointSource> single;
    single->SetNumberOfPoints(1);
    single->SetRadius(0.0);
    single->SetOutputPointsPrecision(vtkAlgorithm::DOUBLE_PRECISION);
    single->SetCenter((*point)[0], (*point)[1], (*point)[2]);
    _mark->GetMapper()->SetInputConnection(single->GetOutputPort());
  }
}

void SelectionHighlight::scalePixels(double factor) {
  for (vtkActor* const actor : {_box.Get(), _mark.Get()}) {
    vtkProperty& property = *actor->GetProperty();
    property.SetLineWidth(property.GetLineWidth() * static_cast<float>(factor));
    property.SetPointSize(property.GetPointSize() * static_cast<float>(factor));
  }
}

}  // namespace vemo
