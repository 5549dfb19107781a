#include "vemoview/vtk/SurroundingLayers.h"

#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>

namespace vemo {

SurroundingLayers::SurroundingLayers(vtkRenderer& middle, const Renderers& below, const Renderers& above)
    : _middle(&middle), _window(middle.GetRenderWindow()), _renderers(below), _layer(middle.GetLayer()) {
  _renderers.insert(_renderers.end(), above.begin(), above.end());
  moveOthers(_layer + 1, static_cast<int>(_renderers.size()));
  middle.SetLayer(_layer + static_cast<int>(below.size()));
  int layer = _layer;
  for (const auto& renderer : _renderers) {
    layer += layer == middle.GetLayer() ? 1 : 0;
    renderer->SetLayer(layer);
    _window->AddRenderer(renderer);
    ++layer;
  }
}

SurroundingLayers::~SurroundingLayers() {
  if (_window == nullptr) {
    return;
  }
  for (const auto& renderer : _renderers) {
    _window->RemoveRenderer(renderer);
  }
  if (_middle != nullptr) {
    _middle->SetLayer(_layer);
  }
  const int count = static_cast<int>(_renderers.size());
  moveOthers(_layer + count + 1, -count);
}

void SurroundingLayers::moveOthers(int leastLayer, int distance) {
  _window->SetNumberOfLayers(_window->GetNumberOfLayers() + distance);
  vtkCollectionSimpleIterator place = nullptr;
  vtkRendererCollection& all = *_window->GetRenderers();
  for (all.InitTraversal(place); vtkRenderer* const renderer = all.GetNextRenderer(place);) {
    if (renderer->GetLayer() >= leastLayer) {
      renderer->SetLayer(renderer->GetLayer() + distance);
    }
  }
}

}  // namespace vemo
