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

#include <map>

namespace vemo {

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
