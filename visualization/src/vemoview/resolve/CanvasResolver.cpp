#include "vemoview/resolve/CanvasResolver.h"

#include "vemoview/resolve/canvas/BackgroundResolver.h"
#include "vemoview/resolve/canvas/CameraResolver.h"
#include "vemoview/resolve/canvas/ClipPlanesResolver.h"
#include "vemoview/resolve/canvas/LightsResolver.h"
#include "vemoview/resolve/decorations/TextFraming.h"
#include "vemoview/resolve/mesh/ModelExtent.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/scenegraph/canvas/BaseCanvasAttributes.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>
#include <vemo/scenegraph/canvas/SceneCanvas.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace vemo {

namespace {

struct Viewport {
  Vector<2, double> lowerLeft;
  Vector<2, double> upperRight;
};

/// The part of a canvas's viewport that is inside the window; nothing when that
/// is empty.
std::optional<Viewport> resolveViewport(const lum::SceneCanvas& canvas) {
  const auto* const base = canvas.findAttributes<lum::BaseCanvasAttributes>();
  const auto* const position = canvas.findAttributes<lum::CanvasPositionAttributes>();
  Viewport result;
  for (std::size_t i = 0; i < 2; ++i) {
    const double low = position != nullptr ? position->getPosition()[i] : 0.0;
    const double high = low + (base != nullptr ? base->getSize()[i] : 1.0);
    result.lowerLeft[i] = std::max(low, 0.0);
    result.upperRight[i] = std::min(high, 1.0);
    // Also false for NaN.
    if (!(result.lowerLeft[i] < result.upperRight[i])) {
      return std::nullopt;
    }
  }
  return result;
}

}  // namespace

bool CanvasResolver::canShow(const lum::SceneCanvas& canvas) {
  return canvas.hasDrawableCollection() != nullptr && resolveViewport(canvas).has_value();
}

CanvasResolver::CanvasResolver(const lum::SceneCanvas& canvas, ResolvedCanvas::Role role,
                               const Background& background, const CameraIndices& cameras,
                               ColorTables& tables)
    : _canvas(canvas),
      _role(role),
      _clipPlanes(resolveClipPlanes(canvas.findAttributes<lum::ClipPlanesAttributes>())),
      _meshes(_clipPlanes.size(), tables),
      _decorations(isDark(background), cameras, tables) {}

ResolvedCanvas CanvasResolver::resolve() {
  const NodeScope scope(_canvas);
  const auto viewport = resolveViewport(_canvas).value();
  const auto* const base = _canvas.findAttributes<lum::BaseCanvasAttributes>();
  CanvasUpdate content = update();
  const CanvasCamera camera = resolveCamera(_canvas.hasCameraAttributes());
  const Box model = reportUnseenExtent(content.meshes, camera);
  if (camera.framesAll()) {
    chooseFramedTexts(content.decorations, model);
  }
  return {_role,
          viewport.lowerLeft,
          viewport.upperRight,
          base != nullptr && base->getInteractive(),
          camera,
          resolveLights(_canvas.findAttributes<lum::LightingAttributes>()),
          _clipPlanes,
          std::move(content.meshes),
          std::move(content.decorations)};
}

CanvasUpdate CanvasResolver::update() {
  const NodeScope scope(_canvas);
  CanvasUpdate result;
  std::vector<VisibleDrawable> added;
  for (const VisibleDrawable& visible : collectVisible(*_canvas.hasDrawableCollection())) {
    result.visible.insert(visible.drawable);
    if (!_resolved.contains(visible.drawable)) {
      added.push_back(visible);
    }
  }
  result.meshes = _meshes.resolve(added);
  result.decorations = _decorations.resolve(added);
  for (const VisibleDrawable& visible : added) {
    _resolved.insert(visible.drawable);
  }
  return result;
}

}  // namespace vemo
