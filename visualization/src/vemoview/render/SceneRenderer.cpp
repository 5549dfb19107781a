#include "vemoview/render/SceneRenderer.h"

#include "scenegraph/SceneNode.h"
#include "vemoview/render/Background.h"
#include "vemoview/render/CanvasLayer.h"

#include <vtkActor.h>
#include <vtkActorCollection.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <set>

namespace {

/// Calls visit(vtkActor&) for every actor of a renderer until it returns true;
/// whether it did.
template <class Visit>
bool findActor(vtkRenderer& renderer, Visit&& visit) {
  vtkCollectionSimpleIterator place;
  vtkActorCollection& actors = *renderer.GetActors();
  for (actors.InitTraversal(place); vtkActor* const actor = actors.GetNextActor(place);) {
    if (visit(*actor)) {
      return true;
    }
  }
  return false;
}

}  // namespace

SceneRenderer::SceneRenderer(const lum::SceneNode& scene) {
  CameraBook cameras;
  addBackground(scene.hasBackgroundCanvas());
  addLayer(scene.hasBackgroundCanvas(), cameras);
  addLayer(scene.hasModelCanvas(), cameras);
  addLayer(scene.hasForegroundCanvas(), cameras);
  addLayer(scene.hasOrientationCanvas(), cameras);
}

SceneRenderer::~SceneRenderer() = default;

/// Whatever part of the window the canvas has, all of it gets the background.
void SceneRenderer::addBackground(const lum::SceneCanvas* canvas) {
  const auto renderer = vtkSmartPointer<vtkRenderer>::New();
  renderer->InteractiveOff();
  const auto* const colors =
      canvas != nullptr ? canvas->findAttributes<lum::BackgroundAttributes>() : nullptr;
  if (colors != nullptr) {
    setBackground(*renderer, *colors);
  }
  _layers.push_back(renderer);
}

void SceneRenderer::addLayer(const lum::SceneCanvas* canvas, CameraBook& cameras) {
  if (canvas != nullptr && canvas->hasDrawableCollection() != nullptr) {
    if (const auto renderer = makeLayer(*canvas, cameras)) {
      _layers.push_back(renderer);
    }
  }
}

bool SceneRenderer::hasTranslucency() const {
  for (const auto& layer : _layers) {
    if (findActor(*layer, [](vtkActor& actor) { return actor.HasTranslucentPolygonalGeometry() != 0; })) {
      return true;
    }
  }
  return false;
}

void SceneRenderer::scalePixels(double factor) {
  // Copies of a piece share a property.
  std::set<vtkProperty*> scaled;
  for (const auto& layer : _layers) {
    findActor(*layer, [&](vtkActor& actor) {
      vtkProperty& property = *actor.GetProperty();
      if (!scaled.insert(&property).second) {
        return false;
      }
      property.SetLineWidth(property.GetLineWidth() * static_cast<float>(factor));
      property.SetPointSize(property.GetPointSize() * static_cast<float>(factor));
      return false;
    });
  }
}

void SceneRenderer::addTo(vtkRenderWindow& window, int samples) {
  // The colours behind a translucent surface are kept with their opacity.
  window.SetAlphaBitPlanes(1);
  window.SetMultiSamples(hasTranslucency() ? 0 : samples);
  window.SetNumberOfLayers(static_cast<int>(_layers.size()));
  for (std::size_t i = 0; i < _layers.size(); ++i) {
    _layers[i]->SetLayer(static_cast<int>(i));
    window.AddRenderer(_layers[i]);
  }
}
