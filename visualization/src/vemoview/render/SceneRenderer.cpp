#include "vemoview/render/draw/Background.h"
#include "vemoview/render/draw/CanvasLayer.h"
#include "vemoview/render/draw/Highlight.h"
#include <vemo/render/SceneRenderer.h>
#include <vemo/scenegraph/SceneNode.h>

#include <vtkActor.h>
#include <vtkActorCollection.h>
#include <vtkMapper.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <algorithm>

namespace vemo {

namespace {

/// Whether the answer of a visible actor is yes.
template <class Ask>
bool findActor(vtkRenderer& renderer, Ask&& ask) {
  vtkCollectionSimpleIterator place = nullptr;
  vtkActorCollection& actors = *renderer.GetActors();
  for (actors.InitTraversal(place); vtkActor* const actor = actors.GetNextActor(place);) {
    if (actor->GetVisibility() != 0 && ask(*actor)) {
      return true;
    }
  }
  return false;
}

bool isTranslucent(vtkActor& actor) {
  return actor.HasTranslucentPolygonalGeometry() != 0;
}

bool showsFineShapes(vtkActor& actor) {
  auto* const geometry = vtkPolyData::SafeDownCast(actor.GetMapper()->GetInput());
  vtkProperty& property = *actor.GetProperty();
  return property.GetEdgeVisibility() != 0 || property.GetRenderPointsAsSpheres() ||
         property.GetRepresentation() == VTK_WIREFRAME ||
         (geometry != nullptr && geometry->GetNumberOfLines() > 0);
}

}  // namespace

SceneRenderer::SceneRenderer(const lum::SceneNode& scene) : _cameras(std::make_unique<CameraBook>()) {
  addBackground(scene.hasBackgroundCanvas());
  addLayer(scene.hasBackgroundCanvas());
  _model = addLayer(scene.hasModelCanvas());
  addLayer(scene.hasForegroundCanvas());
  addLayer(scene.hasOrientationCanvas());
}

SceneRenderer::~SceneRenderer() {
  if (_window != nullptr) {
    _window->MakeCurrent();
    for (vtkRenderer* const renderer : renderers()) {
      _window->RemoveRenderer(renderer);
    }
  }
}

/// Whatever part of the window the canvas has, all of it gets the background.
void SceneRenderer::addBackground(const lum::SceneCanvas* canvas) {
  _background = vtkSmartPointer<vtkRenderer>::New();
  _background->InteractiveOff();
  const auto* const colors =
      canvas != nullptr ? canvas->findAttributes<lum::BackgroundAttributes>() : nullptr;
  if (colors != nullptr) {
    setBackground(*_background, *colors);
  }
}

/// Null when nothing of the canvas is to be seen.
CanvasLayer* SceneRenderer::addLayer(const lum::SceneCanvas* canvas) {
  if (canvas == nullptr || canvas->hasDrawableCollection() == nullptr) {
    return nullptr;
  }
  auto layer = CanvasLayer::make(*canvas, *_cameras);
  if (layer == nullptr) {
    return nullptr;
  }
  _layers.push_back(std::move(layer));
  return _layers.back().get();
}

/// From back to front.
std::vector<vtkRenderer*> SceneRenderer::renderers() const {
  std::vector<vtkRenderer*> result{_background};
  for (const auto& layer : _layers) {
    result.push_back(&layer->getRenderer());
  }
  if (_highlight != nullptr) {
    result.push_back(&_highlight->getRenderer());
  }
  return result;
}

bool SceneRenderer::hasTranslucency() const {
  return std::ranges::any_of(renderers(),
                             [](vtkRenderer* renderer) { return findActor(*renderer, isTranslucent); });
}

bool SceneRenderer::hasFineShapes() const {
  return std::ranges::any_of(renderers(),
                             [](vtkRenderer* renderer) { return findActor(*renderer, showsFineShapes); });
}

void SceneRenderer::scalePixels(double factor) {
  for (const auto& layer : _layers) {
    layer->scalePixels(factor);
  }
  if (_highlight != nullptr) {
    _highlight->scalePixels(factor);
  }
  _pixelScale *= factor;
}

void SceneRenderer::addTo(vtkRenderWindow& window, int samples) {
  _window = &window;
  _samples = samples;
  // The colours behind a translucent surface are kept with their opacity.
  window.SetAlphaBitPlanes(1);
  setSamples();
  const auto all = renderers();
  window.SetNumberOfLayers(static_cast<int>(all.size()));
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i]->SetLayer(static_cast<int>(i));
    window.AddRenderer(all[i]);
  }
}

void SceneRenderer::setSamples() {
  _window->SetMultiSamples(hasTranslucency() ? 0 : _samples);
}

void SceneRenderer::followVisibility() {
  if (_window != nullptr) {
    // What is not drawn any more is given back to OpenGL.
    _window->MakeCurrent();
  }
  for (const auto& layer : _layers) {
    layer->followVisibility();
  }
  if (_window != nullptr) {
    setSamples();
  }
}

std::optional<Pick> SceneRenderer::pick(const Vector<2, double>& pixel) {
  return _model != nullptr ? _model->pick(pixel) : std::nullopt;
}

/// Null without a model.
Highlight* SceneRenderer::highlight() {
  if (_highlight == nullptr && _model != nullptr) {
    _highlight = std::make_unique<Highlight>(_model->getRenderer());
    _highlight->scalePixels(_pixelScale);
    if (_window != nullptr) {
      const int layer = _window->GetNumberOfLayers();
      _window->SetNumberOfLayers(layer + 1);
      _highlight->getRenderer().SetLayer(layer);
      _window->AddRenderer(&_highlight->getRenderer());
    }
  }
  return _highlight.get();
}

void SceneRenderer::outline(const lum::Drawable* drawable) {
  if (Highlight* const highlight = this->highlight()) {
    highlight->outline(drawable != nullptr ? _model->boundsOf(*drawable) : Box());
  }
}

void SceneRenderer::mark(const std::optional<Vector<3, double>>& point) {
  if (Highlight* const highlight = this->highlight()) {
    highlight->mark(point);
  }
}

void SceneRenderer::showHighlight(bool isShown) {
  if (_highlight != nullptr) {
    _highlight->getRenderer().SetDraw(isShown);
  }
}

void SceneRenderer::resetView() {
  for (const auto& layer : _layers) {
    layer->resetView();
  }
}

void SceneRenderer::frameModel() {
  if (_model != nullptr) {
    _model->getRenderer().ResetCamera();
  }
}

}  // namespace vemo
