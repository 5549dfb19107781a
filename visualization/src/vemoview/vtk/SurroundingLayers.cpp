#include "vemoview/vtk/SurroundingLayers.h"

#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>

#include <algorithm>

namespace vemo {

namespace {

std::vector<vtkRenderer*> renderersOf(vtkRenderWindow& window) {
  std::vector<vtkRenderer*> result;
  vtkCollectionSimpleIterator place = nullptr;
  vtkRendererCollection& all = *window.GetRenderers();
  for (all.InitTraversal(place); vtkRenderer* const renderer = all.GetNextRenderer(place);) {
    result.push_back(renderer);
  }
  return result;
}

}  // namespace

SurroundingLayers::SurroundingLayers(vtkRenderer& middle, const Renderers& below, const Renderers& above)
    : _window(middle.GetRenderWindow()), _renderers(below) {
  _renderers.insert(_renderers.end(), above.begin(), above.end());
  int layer = middle.GetLayer();
  moveUp(layer + 1, static_cast<int>(_renderers.size()));
  middle.SetLayer(layer + static_cast<int>(below.size()));
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
  for (; !_renderers.empty(); _renderers.pop_back()) {
    remove(*_renderers.back());
  }
}

void SurroundingLayers::moveUp(int leastLayer, int distance) {
  _window->SetNumberOfLayers(_window->GetNumberOfLayers() + distance);
  for (vtkRenderer* const renderer : renderersOf(*_window)) {
    if (renderer->GetLayer() >= leastLayer) {
      renderer->SetLayer(renderer->GetLayer() + distance);
    }
  }
}

/// Other scenes may have been imported, and removed, since: the layers are those of now.
void SurroundingLayers::remove(vtkRenderer& renderer) {
  const int layer = renderer.GetLayer();
  _window->RemoveRenderer(&renderer);
  const std::vector<vtkRenderer*> others = renderersOf(*_window);
  if (std::ranges::find(others, layer, &vtkRenderer::GetLayer) != others.end()) {
    return;
  }
  for (vtkRenderer* const other : others) {
    if (other->GetLayer() > layer) {
      other->SetLayer(other->GetLayer() - 1);
    }
  }
  _window->SetNumberOfLayers(_window->GetNumberOfLayers() - 1);
}

}  // namespace vemo
