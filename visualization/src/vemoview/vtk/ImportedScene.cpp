#include "vemoview/vtk/ImportedScene.h"

#include "vemoview/render/decorations/Decorations.h"
#include "vemoview/render/draw/Background.h"
#include "vemoview/render/draw/PropBudget.h"
#include "vemoview/render/vtk/CanvasRenderer.h"
#include "vemoview/render/vtk/Screen.h"
#include "vemoview/render/vtk/View.h"
#include "vemoview/vtk/ItemBuilder.h"
#include <vemo/render/MeasureText.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/Findings.h>

#include <vtkActor.h>
#include <vtkBoundingBox.h>
#include <vtkCamera.h>
#include <vtkCommand.h>
#include <vtkCullerCollection.h>
#include <vtkLight.h>
#include <vtkLightCollection.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <utility>

namespace vemo {

namespace {

using Role = ResolvedCanvas::Role;

void reportLeftOut(const SceneTooLarge& error) {
  reportFinding(FindingCode::SCENE_NOT_DRAWN, std::string("Hidden items are left out. ") + error.what());
}

/// What the canvases show besides; nothing if it is too large.
std::vector<CanvasUpdate> resolveHidden(SceneResolver& resolver, std::size_t canvases) {
  std::vector<CanvasUpdate> result(canvases);
  try {
    for (std::size_t i = 0; i < canvases; ++i) {
      result[i] = resolver.resolveHidden(i);
    }
  } catch (const SceneTooLarge& error) {
    reportLeftOut(error);
  }
  return result;
}

/// Whether a budget suffices for it.
bool hasRoomFor(const std::vector<CanvasUpdate>& hidden, const std::vector<std::size_t>& clipPlanes,
                PropBudget budget) {
  try {
    for (std::size_t i = 0; i < hidden.size(); ++i) {
      budget.addKept(hidden[i].meshes, clipPlanes[i]);
    }
  } catch (const SceneTooLarge& error) {
    reportLeftOut(error);
    return false;
  }
  return true;
}

vtkSmartPointer<vtkCamera> cameraFor(vtkRenderer& renderer) {
  return renderer.IsActiveCameraCreated() != 0 ? vtkSmartPointer<vtkCamera>(renderer.GetActiveCamera())
                                               : vtk::TakeSmartPointer(renderer.MakeCamera());
}

Viewport placeOf(const ResolvedCanvas& canvas) {
  return {canvas.lowerLeft[0], canvas.lowerLeft[1], canvas.upperRight[0], canvas.upperRight[1]};
}

bool fillsWindow(const ResolvedCanvas& canvas) {
  return placeOf(canvas) == Viewport{0.0, 0.0, 1.0, 1.0};
}

}  // namespace

ImportedScene::ImportedScene(const lum::SceneNode& scene, vtkRenderer& renderer,
                             const ProgressReport& progress)
    : _renderer(&renderer), _camera(cameraFor(renderer)) {
  SceneResolver resolver(scene, {.arrays = MeshArrays::ALL, .measureText = measureText});
  ResolvedScene resolved = resolver.resolve();
  _background = resolved.background;
  const auto hidden = resolveHidden(resolver, resolved.canvases.size());
  for (std::size_t i = 0; i < hidden.size(); ++i) {
    addCanvas(std::move(resolved.canvases[i]), hidden[i]);
  }
  addItems(scene, hidden, progress);
}

void ImportedScene::addCanvas(ResolvedCanvas canvas, const CanvasUpdate& hidden) {
  const auto own = canvas.role == Role::MODEL ? nullptr : makeRenderer(canvas);
  const bool isEmpty = canvas.meshes.empty() && canvas.decorations.empty() && hidden.meshes.empty() &&
                       hidden.decorations.empty();
  const Box places = framedPlaces(canvas.decorations);
  _canvases.push_back({std::move(canvas), own, places, isEmpty});
}

void ImportedScene::addItems(const lum::SceneNode& scene, const std::vector<CanvasUpdate>& hidden,
                             const ProgressReport& progress) {
  CanvasCameras cameras;
  std::size_t meshes = 0;
  PropBudget budget(Drawn::OFTEN);
  std::vector<std::size_t> clipPlanes;
  for (std::size_t i = 0; i < hidden.size(); ++i) {
    const auto& own = _canvases[i].ownRenderer;
    cameras.emplace_back(own != nullptr ? own->GetActiveCamera() : _camera.Get());
    meshes += _canvases[i].content.meshes.size() + hidden[i].meshes.size();
    clipPlanes.push_back(_canvases[i].content.clipPlanes.size());
    budget.addKept(_canvases[i].content.meshes, clipPlanes.back());
  }
  const bool hasHidden = hasRoomFor(hidden, clipPlanes, std::move(budget));
  ProgressMeter meter(progress);
  meter.startPhase(1.0, meshes);
  ItemBuilder builder(scene, meter);
  for (std::size_t i = 0; i < hidden.size(); ++i) {
    ResolvedCanvas& canvas = _canvases[i].content;
    const auto& own = _canvases[i].ownRenderer;
    auto resources = makeResources(canvas, own != nullptr ? *own : *_renderer);
    builder.add(std::exchange(canvas.meshes, {}), true, resources);
    builder.add(std::exchange(canvas.decorations, {}), true, resources, cameras);
    if (hasHidden) {
      builder.add(hidden[i].meshes, false, resources);
      builder.add(hidden[i].decorations, false, resources, cameras);
    }
  }
  _items = builder.finish();
}

ImportedScene::~ImportedScene() {
  if (_renderer == nullptr) {
    return;
  }
  if (vtkRenderWindow* const window = _renderer->GetRenderWindow()) {
    // Props are released in their OpenGL context.
    window->MakeCurrent();
  }
  _renderer->RemoveObserver(_clippingObserver);
  _renderer->RemoveObserver(_drawingObserver);
  for (const auto& light : _lights) {
    _renderer->RemoveLight(light);
  }
  if (_formerSettings != nullptr) {
    _formerSettings->removeModelParts(*this);
  }
}

const ImportedScene::Canvas* ImportedScene::findModel() const {
  const auto found = std::ranges::find_if(
      _canvases, [](const Canvas& canvas) { return canvas.content.role == Role::MODEL; });
  return found == _canvases.end() ? nullptr : &*found;
}

bool ImportedScene::hasPlainBackground() const {
  const Canvas* const model = findModel();
  return std::holds_alternative<SolidBackground>(_background) &&
         (model == nullptr || fillsWindow(model->content)) &&
         std::ranges::none_of(_canvases, [](const Canvas& canvas) {
           return canvas.content.role == Role::BACKGROUND && !canvas.isEmpty;
         });
}

vtkSmartPointer<vtkRenderer> ImportedScene::makeBackgroundLayer() const {
  auto layer = vtkSmartPointer<vtkRenderer>::New();
  layer->InteractiveOff();
  layer->SetViewport(_formerSettings->findWhole().data());
  setBackground(*layer, _background);
  return layer;
}

void ImportedScene::addLayers() {
  SurroundingLayers::Renderers below;
  SurroundingLayers::Renderers above;
  if (!hasPlainBackground()) {
    below.push_back(makeBackgroundLayer());
  }
  for (const Canvas& canvas : _canvases) {
    if (canvas.ownRenderer != nullptr && !canvas.isEmpty) {
      canvas.ownRenderer->SetViewport(partOf(_formerSettings->findWhole(), placeOf(canvas.content)).data());
      (canvas.content.role == Role::BACKGROUND ? below : above).push_back(canvas.ownRenderer);
    }
  }
  _layers = std::make_unique<SurroundingLayers>(*_renderer, below, above);
}

void ImportedScene::show() {
  _formerSettings = RendererSettings::of(*_renderer);
  const Viewport whole = _formerSettings->findWhole();
  setScenePart(*_renderer, whole.data());
  _items.showVisible();
  for (const Canvas& canvas : _canvases) {
    if (canvas.ownRenderer != nullptr) {
      setScenePart(*canvas.ownRenderer, whole.data());
      setLights(*canvas.ownRenderer, canvas.content.lights);
      vemo::setCamera(*canvas.ownRenderer, canvas.content.camera, canvas.placesOfTexts);
    }
  }
  addLayers();
  if (const Canvas* const model = findModel()) {
    _formerSettings->addModelPart(*this, placeOf(model->content));
  }
}

void ImportedScene::setCamera(bool isWanted) {
  if (_renderer->IsActiveCameraCreated() == 0) {
    _renderer->SetActiveCamera(_camera);
    _renderer->ResetCamera();
  }
  // VTK chooses one of two, by the depth of a renderer's window if it has one already.
  constexpr double NEAR_TO_FAR = 0.01;
  _renderer->SetNearClippingPlaneTolerance(NEAR_TO_FAR);
  _clippingObserver =
      _renderer->AddObserver(vtkCommand::ResetCameraClippingRangeEvent, this, &ImportedScene::extendClipping);
  _drawingObserver = _renderer->AddObserver(vtkCommand::StartEvent, this, &ImportedScene::updateClipping);
  const Canvas* const model = findModel();
  if (isWanted && model != nullptr) {
    vemo::setCamera(*_renderer, model->content.camera, model->placesOfTexts);
  } else {
    _renderer->ResetCameraClippingRange();
  }
}

void ImportedScene::addLights() {
  const Canvas* const model = findModel();
  if (model == nullptr) {
    return;
  }
  _formerSettings->turnOffAutomaticLight();
  _lights = makeLights(model->content.lights);
  for (const auto& light : _lights) {
    _renderer->AddLight(light);
  }
}

/// As our own renderer does.
void ImportedScene::extendClipping() {
  if (const vtkBoundingBox bounds(_renderer->ComputeVisiblePropBounds()); bounds.IsValid()) {
    std::array<double, 6> sides{};
    bounds.GetBounds(sides.data());
    showNear(*_renderer->GetActiveCamera(), sides.data());
  }
}

void ImportedScene::setVisibility(ImportedItem& item, bool isVisible) {
  item.show(isVisible);
  _isClippingOutdated = _isClippingOutdated || isVisible;
}

/// Before the next frame, since a program may show many items.
void ImportedScene::updateClipping() {
  if (std::exchange(_isClippingOutdated, false)) {
    _renderer->ResetCameraClippingRange();
  }
}

bool ImportedScene::hasTranslucency() {
  bool isFound = false;
  for (std::size_t i = 0; i < _items.size(); ++i) {
    for (const auto& group : _items[i].groups) {
      group->forEachProp([&](vtkProp& prop) {
        auto* const actor = vtkActor::SafeDownCast(&prop);
        isFound = isFound || (actor != nullptr && actor->HasTranslucentPolygonalGeometry() != 0);
      });
    }
  }
  return isFound;
}

void ImportedScene::setProperties() {
  if (hasPlainBackground()) {
    setBackground(*_renderer, _background);
    _renderer->GradientBackgroundOff();
    _renderer->TexturedBackgroundOff();
  }
  // They would cull what has no extent, such as a single point.
  _renderer->GetCullers()->RemoveAllItems();
  if (vtkRenderWindow* const window = _renderer->GetRenderWindow(); window != nullptr && hasTranslucency()) {
    window->MakeCurrent();
    _formerSettings->peelDepths();
    window->SetAlphaBitPlanes(1);
    window->SetMultiSamples(0);
  }
}

}  // namespace vemo
