#include "vemoview/render/draw/Background.h"
#include "vemoview/render/draw/CanvasLayer.h"
#include "vemoview/render/draw/SelectionHighlight.h"
#include "vemoview/render/draw/TransientMeshes.h"
#include "vemoview/render/vtk/MeshActor.h"
#include "vemoview/render/vtk/View.h"
#include <vemo/render/MeasureText.h>
#include <vemo/render/SceneRenderer.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/edit/View.h>

#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkPropCollection.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkWeakPointer.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace vemo {

namespace {

using Renderers = std::vector<vtkRenderer*>;

/// Whether a condition holds for a visible prop.
template <class Condition>
bool findProp(const Renderers& renderers, Condition&& condition) {
  return std::ranges::any_of(renderers, [&](vtkRenderer* renderer) {
    vtkCollectionSimpleIterator position = nullptr;
    vtkPropCollection& props = *renderer->GetViewProps();
    for (props.InitTraversal(position); vtkProp* const prop = props.GetNextProp(position);) {
      if (prop->GetVisibility() != 0 && condition(*prop)) {
        return true;
      }
    }
    return false;
  });
}

/// Texts are not: they need no layers.
bool isDrawnInLayers(vtkProp& prop) {
  const bool isOfModel =
      dynamic_cast<vtkActor*>(&prop) != nullptr || dynamic_cast<TransientMeshes*>(&prop) != nullptr;
  return isOfModel && prop.HasTranslucentPolygonalGeometry() != 0;
}

bool drawsFineShapes(vtkProp& prop) {
  if (auto* const actor = dynamic_cast<vtkActor*>(&prop)) {
    return showsFineShapes(*actor);
  }
  const auto* const meshes = dynamic_cast<TransientMeshes*>(&prop);
  return meshes != nullptr && meshes->hasFineShapes();
}

}  // namespace

struct SceneRenderer::State {
  State(const lum::SceneNode& scene, ViewChange view, Drawn drawn);
  void addLayer(ResolvedCanvas canvas);
  void update();
  Renderers renderers() const;
  void setSamples();
  SelectionHighlight* ensureHighlight();

  SceneResolver resolver;
  PropBudget budget;
  vtkSmartPointer<vtkRenderer> background = vtkSmartPointer<vtkRenderer>::New();
  /// As the scene's canvases: from back to front.
  std::vector<std::unique_ptr<CanvasLayer>> layers;
  CanvasCameras cameras;
  /// Null when the scene has no model.
  CanvasLayer* model = nullptr;
  std::unique_ptr<SelectionHighlight> highlight;
  vtkWeakPointer<vtkRenderWindow> window;
  int samples = 0;
  double pixelScale = 1.0;
};

SceneRenderer::State::State(const lum::SceneNode& scene, ViewChange view, Drawn drawn)
    : resolver(scene, {.view = std::move(view), .measureText = measureText}), budget(drawn) {
  ResolvedScene resolved = resolver.resolve();
  background->InteractiveOff();
  vemo::setBackground(*background, resolved.background);
  for (ResolvedCanvas& canvas : resolved.canvases) {
    addLayer(std::move(canvas));
  }
  for (const auto& layer : layers) {
    layer->fill(cameras, budget);
  }
}

void SceneRenderer::State::addLayer(ResolvedCanvas canvas) {
  layers.push_back(std::make_unique<CanvasLayer>(std::move(canvas)));
  CanvasLayer& layer = *layers.back();
  cameras.emplace_back(layer.getRenderer().GetActiveCamera());
  model = layer.isModel() ? &layer : model;
}

/// Nothing is shown before all of it is known to be small enough.
void SceneRenderer::State::update() {
  std::vector<CanvasUpdate> updates;
  std::vector<CanvasLayer::PlannedBatches> added;
  PropBudget afterwards = budget;
  updates.reserve(layers.size());
  try {
    for (std::size_t i = 0; i < layers.size(); ++i) {
      CanvasUpdate& update = updates.emplace_back(resolver.update(i));
      added.push_back(layers[i]->plan(std::exchange(update.meshes, {}), afterwards));
    }
  } catch (...) {
    for (std::size_t i = 0; i < updates.size(); ++i) {
      resolver.takeBack(i);
    }
    throw;
  }
  budget = std::move(afterwards);
  for (std::size_t i = 0; i < layers.size(); ++i) {
    layers[i]->update(updates[i], std::move(added[i]), cameras);
  }
}

/// From back to front.
Renderers SceneRenderer::State::renderers() const {
  Renderers result{background};
  for (const auto& layer : layers) {
    result.push_back(&layer->getRenderer());
  }
  if (highlight != nullptr) {
    result.push_back(&highlight->getRenderer());
  }
  return result;
}

void SceneRenderer::State::setSamples() {
  window->SetMultiSamples(findProp(renderers(), isDrawnInLayers) ? 0 : samples);
}

SceneRenderer::SceneRenderer(const lum::SceneNode& scene, ViewChange view, Drawn drawn)
    : _state(std::make_unique<State>(scene, std::move(view), drawn)) {}

SceneRenderer::~SceneRenderer() {
  if (_state->window != nullptr) {
    _state->window->MakeCurrent();
    for (vtkRenderer* const renderer : _state->renderers()) {
      _state->window->RemoveRenderer(renderer);
    }
  }
}

bool SceneRenderer::hasTranslucency() const {
  return findProp(_state->renderers(), isDrawnInLayers);
}

bool SceneRenderer::hasFineShapes() const {
  return findProp(_state->renderers(), drawsFineShapes);
}

void SceneRenderer::scalePixels(double factor) {
  for (const auto& layer : _state->layers) {
    layer->scalePixels(factor);
  }
  if (_state->highlight != nullptr) {
    _state->highlight->scalePixels(factor);
  }
  _state->pixelScale *= factor;
}

void SceneRenderer::addTo(vtkRenderWindow& window, int samples) {
  _state->window = &window;
  _state->samples = samples;
  // The colours behind a translucent surface are kept with their opacity.
  window.SetAlphaBitPlanes(1);
  _state->setSamples();
  const auto all = _state->renderers();
  window.SetNumberOfLayers(static_cast<int>(all.size()));
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i]->SetLayer(static_cast<int>(i));
    window.AddRenderer(all[i]);
  }
}

void SceneRenderer::followVisibility() {
  if (_state->window != nullptr) {
    // Props that are no longer drawn are released in their OpenGL context.
    _state->window->MakeCurrent();
  }
  _state->update();
  if (_state->window != nullptr) {
    _state->setSamples();
  }
}

std::optional<Pick> SceneRenderer::pick(const Vector<2, double>& pixel) {
  return _state->model != nullptr ? _state->model->pick(pixel) : std::nullopt;
}

/// Null without a model.
SelectionHighlight* SceneRenderer::State::ensureHighlight() {
  if (highlight == nullptr && model != nullptr) {
    highlight = std::make_unique<SelectionHighlight>(model->getRenderer());
    highlight->scalePixels(pixelScale);
    if (window != nullptr) {
      const int layer = window->GetNumberOfLayers();
      window->SetNumberOfLayers(layer + 1);
      highlight->getRenderer().SetLayer(layer);
      window->AddRenderer(&highlight->getRenderer());
    }
  }
  return highlight.get();
}

void SceneRenderer::outline(const lum::Drawable* drawable) {
  if (SelectionHighlight* const highlight = _state->ensureHighlight()) {
    highlight->outline(drawable != nullptr ? _state->model->boundsOf(visibleParts(*drawable)) : Box());
  }
}

void SceneRenderer::mark(const std::optional<Vector3>& point) {
  if (SelectionHighlight* const highlight = _state->ensureHighlight()) {
    highlight->mark(point);
  }
}

void SceneRenderer::showHighlight(bool isShown) {
  if (_state->highlight != nullptr) {
    _state->highlight->getRenderer().SetDraw(isShown);
  }
}

void SceneRenderer::resetView() {
  for (const auto& layer : _state->layers) {
    layer->resetView();
  }
}

void SceneRenderer::fitModel() {
  if (_state->model != nullptr) {
    _state->model->fit();
  }
}

bool SceneRenderer::fit(std::span<const lum::Drawable* const> drawables) {
  DrawableSet parts;
  for (const lum::Drawable* const drawable : drawables) {
    parts.merge(visibleParts(*drawable));
  }
  if (_state->model == nullptr) {
    return false;
  }
  const Box bounds = _state->model->boundsOf(parts);
  if (!bounds.isEmpty()) {
    _state->model->fit(bounds);
  }
  return !bounds.isEmpty();
}

void SceneRenderer::look(const lum::ViewDirection& direction) {
  if (_state->model != nullptr) {
    _state->model->look({.viewpoint = CanvasCamera::Viewpoint{-1.0 * direction.forward, {}, direction.viewUp},
                         .isParallel = true,
                         .parallelScale = std::nullopt});
    _state->model->fit();
  }
}

void SceneRenderer::widen(double aspect) {
  if (_state->model != nullptr) {
    vemo::widen(_state->model->getRenderer(), aspect);
  }
}

void SceneRenderer::copyView(const SceneRenderer& other) {
  const auto count = std::min(_state->layers.size(), other._state->layers.size());
  for (std::size_t i = 0; i < count; ++i) {
    vtkRenderer& renderer = _state->layers[i]->getRenderer();
    renderer.GetActiveCamera()->DeepCopy(other._state->layers[i]->getRenderer().GetActiveCamera());
    renderer.ResetCameraClippingRange();
  }
}

void SceneRenderer::setBackground(const Vector3& color) {
  // A gradient is a prop.
  _state->background->RemoveAllViewProps();
  vemo::setBackground(*_state->background, SolidBackground{color});
}

void SceneRenderer::frameModel() {
  if (_state->model != nullptr) {
    _state->model->frameAll();
  }
}

}  // namespace vemo
