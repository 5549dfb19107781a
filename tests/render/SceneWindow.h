#pragma once

#include "render/RenderScene.h"
#include "vemoview/render/EglRenderWindow.h"
#include "vemoview/render/SceneRenderer.h"

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

  SceneRenderer renderer;

 private:
  vtkSmartPointer<EglRenderWindow> _window = EglRenderWindow::open(RenderScene::SIZE, RenderScene::SIZE);
};
