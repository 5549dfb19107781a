#include "vemoview/vtk/RendererSettings.h"

#include "vemoview/render/vtk/CanvasRenderer.h"
#include "vemoview/render/vtk/Screen.h"

#include <vtkCuller.h>
#include <vtkCullerCollection.h>
#include <vtkLight.h>
#include <vtkLightCollection.h>
#include <vtkOpenGLRenderer.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <cmath>
#include <map>

namespace vemo {

namespace {

Viewport viewportOf(vtkRenderer& renderer) {
  Viewport viewport{};
  renderer.GetViewport(viewport.data());
  return viewport;
}

}  // namespace

Viewport partOf(const Viewport& whole, const Viewport& part) {
  // Exact at both ends, so that all of it is the same part.
  const auto x = [&whole](double fraction) { return std::lerp(whole[0], whole[2], fraction); };
  const auto y = [&whole](double fraction) { return std::lerp(whole[1], whole[3], fraction); };
  return {x(part[0]), y(part[1]), x(part[2]), y(part[3])};
}

std::shared_ptr<RendererSettings> RendererSettings::of(vtkRenderer& renderer) {
  static auto& known = *new std::map<const vtkRenderer*, std::weak_ptr<RendererSettings>>;
  std::erase_if(known, [](const auto& entry) { return entry.second.expired(); });
  std::shared_ptr<RendererSettings> settings = known[&renderer].lock();
  // The address may be that of a renderer that has ended.
  if (settings == nullptr || settings->_renderer == nullptr) {
    settings = std::make_shared<RendererSettings>(renderer);
    known[&renderer] = settings;
  }
  return settings;
}

RendererSettings::RendererSettings(vtkRenderer& renderer)
    : _renderer(&renderer),
      _window(renderer.GetRenderWindow()),
      _createsLight(renderer.GetAutomaticLightCreation() != 0),
      _background(toVector(renderer.GetBackground())),
      _hasGradient(renderer.GetGradientBackground()),
      _hasTexture(renderer.GetTexturedBackground()),
      _nearTolerance(renderer.GetNearClippingPlaneTolerance()),
      _peelsDepths(renderer.GetUseDepthPeeling() != 0),
      _peels(renderer.GetMaximumNumberOfPeels()),
      _occlusionRatio(renderer.GetOcclusionRatio()) {
  vtkCullerCollection& cullers = *renderer.GetCullers();
  for (int i = 0; i < cullers.GetNumberOfItems(); ++i) {
    _cullers.emplace_back(vtkCuller::SafeDownCast(cullers.GetItemAsObject(i)));
  }
  if (_window != nullptr) {
    _alphaBitPlanes = _window->GetAlphaBitPlanes();
    _samples = _window->GetMultiSamples();
  }
}

void RendererSettings::turnOffAutomaticLight() {
  vtkLightCollection& lights = *_renderer->GetLights();
  auto* const first = vtkLight::SafeDownCast(lights.GetItemAsObject(0));
  if (_renderer->GetAutomaticLightCreation() != 0 && lights.GetNumberOfItems() == 1 &&
      first->LightTypeIsHeadlight() != 0) {
    _createdLight = first;
    _renderer->RemoveLight(first);
  }
  _renderer->AutomaticLightCreationOff();
}

void RendererSettings::peelDepths() {
  _peeling = vtkOpenGLRenderer::SafeDownCast(_renderer);
  if (_peeling != nullptr) {
    CanvasRenderer::peelDepths(*_peeling);
  }
}

bool RendererSettings::isPartOfModel() const {
  return !_modelParts.empty() && viewportOf(*_renderer) == partOf(_whole, _modelParts.back().part);
}

void RendererSettings::followProgram() {
  if (!isPartOfModel()) {
    _whole = viewportOf(*_renderer);
  }
}

const Viewport& RendererSettings::findWhole() {
  followProgram();
  return _whole;
}

void RendererSettings::showPart() {
  const Viewport part = _modelParts.empty() ? _whole : partOf(_whole, _modelParts.back().part);
  _renderer->SetViewport(part.data());
}

void RendererSettings::addModelPart(const ImportedScene& scene, const Viewport& part) {
  followProgram();
  _modelParts.push_back({&scene, part});
  showPart();
}

void RendererSettings::removeModelParts(const ImportedScene& scene) {
  const bool isShown = isPartOfModel();
  std::erase_if(_modelParts, [&scene](const ModelPart& part) { return part.scene == &scene; });
  if (isShown) {
    showPart();
  }
}

RendererSettings::~RendererSettings() {
  if (_renderer == nullptr) {
    return;
  }
  removeScenePart(*_renderer);
  _renderer->SetAutomaticLightCreation(_createsLight);
  if (_createdLight != nullptr) {
    _renderer->AddLight(_createdLight);
  }
  _renderer->SetBackground(_background.data());
  _renderer->SetGradientBackground(_hasGradient);
  _renderer->SetTexturedBackground(_hasTexture);
  _renderer->SetNearClippingPlaneTolerance(_nearTolerance);
  if (_peeling != nullptr) {
    CanvasRenderer::releasePeeling(*_peeling);
  }
  _renderer->SetUseDepthPeeling(_peelsDepths);
  _renderer->SetMaximumNumberOfPeels(_peels);
  _renderer->SetOcclusionRatio(_occlusionRatio);
  _renderer->GetCullers()->RemoveAllItems();
  for (const auto& culler : _cullers) {
    _renderer->AddCuller(culler);
  }
  if (_window != nullptr) {
    _window->SetAlphaBitPlanes(_alphaBitPlanes);
    _window->SetMultiSamples(_samples);
  }
}

}  // namespace vemo
