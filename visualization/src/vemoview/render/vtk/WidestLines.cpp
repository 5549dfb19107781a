#include "vemoview/render/vtk/WidestLines.h"

#include <vtkCommand.h>
#include <vtkPropCollection.h>
#include <vtkRenderer.h>

#include <algorithm>

namespace vemo {

WidestLines::WidestLines(vtkRenderer& renderer)
    : _renderer(&renderer),
      _observer(renderer.AddObserver(vtkCommand::StartEvent, this, &WidestLines::update)) {}

WidestLines::~WidestLines() {
  if (_renderer != nullptr) {
    _renderer->RemoveObserver(_observer);
  }
}

void WidestLines::update() {
  _pixels = 0.0;
  vtkPropCollection& props = *_renderer->GetViewProps();
  vtkCollectionSimpleIterator place = nullptr;
  props.InitTraversal(place);
  while (vtkProp* const prop = props.GetNextProp(place)) {
    auto* const lines = dynamic_cast<LinesProp*>(prop);
    if (lines != nullptr && prop->GetVisibility() != 0) {
      _pixels = std::max(_pixels, lines->getRoomBehind());
    }
  }
}

}  // namespace vemo
