#include "vemoview/render/CanvasLayer.h"

#include "scenegraph/canvas/SceneCanvas.h"
#include "vemoview/render/Decorations.h"
#include "vemoview/render/Piece.h"
#include "vemoview/render/PieceActors.h"
#include "vemoview/render/PieceJoiner.h"
#include "vemoview/render/View.h"

#include <vtkCullerCollection.h>
#include <vtkNew.h>
#include <vtkPlane.h>
#include <vtkPlaneCollection.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cmath>

namespace {

bool isFinite(const Vector<3, double>& vector) {
  return std::ranges::all_of(vector, [](double value) { return std::isfinite(value); });
}

/// False when nothing is left of the part of the window that is asked for.
bool setViewport(vtkRenderer& renderer, const lum::SceneCanvas& canvas) {
  const auto* const base = canvas.findAttributes<lum::BaseCanvasAttributes>();
  const auto* const place = canvas.findAttributes<lum::CanvasPositionAttributes>();
  Vector<2, double> low{};
  Vector<2, double> high{1.0, 1.0};
  for (std::size_t i = 0; i < 2; ++i) {
    low[i] = place != nullptr ? place->getPosition()[i] : 0.0;
    high[i] = low[i] + (base != nullptr ? base->getSize()[i] : 1.0);
    low[i] = std::max(low[i], 0.0);
    high[i] = std::min(high[i], 1.0);
    // Also false for what is not a number.
    if (!(low[i] < high[i])) {
      return false;
    }
  }
  renderer.SetViewport(low[0], low[1], high[0], high[1]);
  renderer.SetInteractive(base != nullptr && base->getInteractive());
  return true;
}

vtkSmartPointer<vtkPlaneCollection> planesOf(const lum::SceneCanvas& canvas) {
  auto planes = vtkSmartPointer<vtkPlaneCollection>::New();
  const auto* const attributes = canvas.findAttributes<lum::ClipPlanesAttributes>();
  if (attributes == nullptr || attributes->hasClippingPlanes() == nullptr) {
    return planes;
  }
  for (const auto& node : attributes->hasClippingPlanes()->getNodes()) {
    const auto* const plane = dynamic_cast<const lum::Plane*>(node.get());
    if (plane != nullptr && isFinite(plane->getNormal()) && isFinite(plane->getOrigin())) {
      vtkNew<vtkPlane> item;
      item->SetNormal(plane->getNormal().data());
      item->SetOrigin(plane->getOrigin().data());
      planes->AddItem(item);
    }
  }
  return planes;
}

/// Translucent layers are told apart by depth, not drawn in any order.
void peelTranslucency(vtkRenderer& renderer) {
  constexpr int MOST_LAYERS = 64;
  renderer.SetUseDepthPeeling(1);
  renderer.SetMaximumNumberOfPeels(MOST_LAYERS);
  renderer.SetOcclusionRatio(0.0);
}

}  // namespace

vtkSmartPointer<vtkRenderer> makeLayer(const lum::SceneCanvas& canvas, CameraBook& cameras) {
  auto renderer = vtkSmartPointer<vtkRenderer>::New();
  if (!setViewport(*renderer, canvas)) {
    return nullptr;
  }
  // They would take what has no extent, a single point, for invisible.
  renderer->GetCullers()->RemoveAllItems();
  peelTranslucency(*renderer);
  if (const auto* const drawables = canvas.hasDrawableCollection()) {
    const auto planes = planesOf(canvas);
    const auto visible = collectVisible(*drawables);
    for (const Piece& piece : joinSmallPieces(collectPieces(visible))) {
      addActors(piece, *planes, *renderer);
    }
    addDecorations(visible, cameras, *renderer);
  }
  setLights(*renderer, canvas.findAttributes<lum::LightingAttributes>());
  setCamera(*renderer, canvas.hasCameraAttributes());
  if (canvas.hasCameraAttributes() != nullptr) {
    cameras[canvas.hasCameraAttributes()] = renderer;
  }
  return renderer;
}
