#pragma once

#include "render/RenderScene.h"
#include "vemoview/render/context/EglRenderWindow.h"
#include <vemo/render/SceneRenderer.h>

#include <vtkCamera.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>

namespace vemo {

/// A scene in a window that is drawn again and again.
class SceneWindow {
 public:
  explicit SceneWindow(const RenderScene& scene) : renderer(scene.node()) {
    renderer.addTo(*_window, 0);
    _window->Render();
  }

  Picture draw() {
    _window->Render();
    return Picture::of(*_window);
  }

  /// All cameras go round what they look at.
  void turn(double degrees) {
    forEachLayer([degrees](vtkRenderer& layer) { layer.GetActiveCamera()->Azimuth(degrees); });
  }

  template <class Action>
  void forEachLayer(const Action& action) {
    vtkCollectionSimpleIterator place = nullptr;
    vtkRendererCollection& renderers = *_window->GetRenderers();
    for (renderers.InitTraversal(place); vtkRenderer* const layer = renderers.GetNextRenderer(place);) {
      action(*layer);
    }
  }

  SceneRenderer renderer;

 private:
  vtkSmartPointer<EglRenderWindow> _window = EglRenderWindow::open(SIZE, SIZE);
};

}  // namespace vemo
