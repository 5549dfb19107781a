#include "vemoview/render/draw/CanvasLayer.h"

#include "vemoview/common/VtkForms.h"
#include "vemoview/render/draw/PieceActors.h"
#include "vemoview/render/draw/PieceJoiner.h"
#include "vemoview/render/draw/View.h"
#include "vemoview/render/pick/Picker.h"
#include "vemoview/render/pick/SightLine.h"
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/canvas/SceneCanvas.h>

#include <vtkCullerCollection.h>
#include <vtkNew.h>
#include <vtkPlane.h>
#include <vtkPlaneCollection.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vemo {

namespace {

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

/// More of them cut no shape that is meant.
constexpr int MOST_PLANES = 16;

/// In the range of the numbers that OpenGL reckons with; zero stays zero.
Vector3 unitNormal(const lum::Plane& plane) {
  const Vector3& normal = plane.getNormal();
  const double largest = std::max({std::abs(normal[0]), std::abs(normal[1]), std::abs(normal[2])});
  return largest > 0.0 ? normalized((1.0 / largest) * normal) : normal;
}

vtkSmartPointer<vtkPlaneCollection> planesOf(const lum::SceneCanvas& canvas) {
  auto planes = vtkSmartPointer<vtkPlaneCollection>::New();
  const auto* const attributes = canvas.findAttributes<lum::ClipPlanesAttributes>();
  if (attributes == nullptr || attributes->hasClippingPlanes() == nullptr) {
    return planes;
  }
  for (const auto& node : attributes->hasClippingPlanes()->getNodes()) {
    const auto* const plane = dynamic_cast<const lum::Plane*>(node.get());
    if (plane == nullptr || !isFinite(plane->getNormal()) || !isFinite(plane->getOrigin())) {
      continue;
    }
    if (planes->GetNumberOfItems() == MOST_PLANES) {
      VEMO_LOG_WARNING("Only the first " << MOST_PLANES << " clipping planes cut");
      break;
    }
    vtkNew<vtkPlane> item;
    setVtkPlane(*item, plane->getOrigin(), unitNormal(*plane));
    planes->AddItem(item);
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

/// Makes a box large enough for a piece, wherever it is shown.
void addPlacedBounds(const Piece& piece, Box& box) {
  const Box& own = piece.getBounds();
  forEachPlacement(piece.placements, [&](const double* placement) {
    for (const double x : {own.low[0], own.high[0]}) {
      for (const double y : {own.low[1], own.high[1]}) {
        for (const double z : {own.low[2], own.high[2]}) {
          box.add(placed({x, y, z}, placement));
        }
      }
    }
  });
}

}  // namespace

std::unique_ptr<CanvasLayer> CanvasLayer::make(const lum::SceneCanvas& canvas, CameraBook& cameras) {
  const auto renderer = vtkSmartPointer<vtkRenderer>::New();
  if (!setViewport(*renderer, canvas)) {
    return nullptr;
  }
  return std::unique_ptr<CanvasLayer>(new CanvasLayer(canvas, *renderer, cameras));
}

CanvasLayer::CanvasLayer(const lum::SceneCanvas& canvas, vtkRenderer& renderer, CameraBook& cameras)
    : _canvas(canvas),
      _renderer(&renderer),
      _planes(planesOf(canvas)),
      _collector(std::max(0, _planes->GetNumberOfItems() - PLANES_IN_MAPPER)),
      _decorations(renderer, cameras) {
  // They would take what has no extent, a single point, for invisible.
  renderer.GetCullers()->RemoveAllItems();
  peelTranslucency(renderer);
  if (canvas.hasCameraAttributes() != nullptr) {
    cameras[canvas.hasCameraAttributes()] = _renderer;
  }
  followVisibility();
  setLights(renderer, canvas.findAttributes<lum::LightingAttributes>());
  resetView();
}

void CanvasLayer::followVisibility() {
  const auto* const drawables = _canvas.hasDrawableCollection();
  if (drawables == nullptr) {
    return;
  }
  DrawableSet shown;
  std::vector<VisibleDrawable> added;
  for (const VisibleDrawable& visible : collectVisible(*drawables)) {
    shown.insert(visible.drawable);
    if (!_made.contains(visible.drawable)) {
      added.push_back(visible);
    }
  }
  add(added);
  for (Stroke& stroke : _strokes) {
    stroke.show(shown, _pixelScale);
  }
  _decorations.show(shown);
  _renderer->ResetCameraClippingRange();
}

void CanvasLayer::add(const std::vector<VisibleDrawable>& drawables) {
  for (auto& members : groupForJoining(_collector.collect(drawables))) {
    _strokes.emplace_back(std::move(members), *_renderer, *_planes);
  }
  _decorations.add(drawables);
  for (const VisibleDrawable& visible : drawables) {
    _made.insert(visible.drawable);
  }
}

void CanvasLayer::scalePixels(double factor) {
  _pixelScale *= factor;
  for (Stroke& stroke : _strokes) {
    stroke.scalePixels(factor);
  }
  _decorations.scalePixels(factor);
}

std::optional<Pick> CanvasLayer::pick(const Vector<2, double>& pixel) const {
  auto line = SightLine::through(*_renderer, pixel);
  if (!line) {
    return std::nullopt;
  }
  line->pixelAtOrigin *= _pixelScale;
  line->pixelGrowth *= _pixelScale;
  Picker picker(*line, *_planes);
  for (const Stroke& stroke : _strokes) {
    stroke.forEachShown([&](const Piece& piece) { picker.look(piece); });
  }
  return picker.getNearest();
}

void CanvasLayer::resetView() {
  setCamera(*_renderer, _canvas.hasCameraAttributes());
}

Box CanvasLayer::boundsOf(const lum::Drawable& drawable) const {
  DrawableSet parts;
  for (const VisibleDrawable& visible : collectVisible(drawable)) {
    parts.insert(visible.drawable);
  }
  Box box;
  for (const Stroke& stroke : _strokes) {
    stroke.forEachShown([&](const Piece& piece) {
      if (parts.contains(piece.drawable)) {
        addPlacedBounds(piece, box);
      }
    });
  }
  return box;
}

}  // namespace vemo
