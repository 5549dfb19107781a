#include "vemoview/resolve/CanvasResolver.h"

#include "vemoview/resolve/canvas/BackgroundResolver.h"
#include "vemoview/resolve/canvas/CameraResolver.h"
#include "vemoview/resolve/canvas/ClipPlanesResolver.h"
#include "vemoview/resolve/canvas/LightsResolver.h"
#include "vemoview/resolve/canvas/ShownShapes.h"
#include "vemoview/resolve/decorations/TextFraming.h"
#include "vemoview/resolve/decorations/UnseenDecorations.h"
#include "vemoview/resolve/drawables/InstanceBounds.h"
#include "vemoview/resolve/mesh/DrawnArea.h"
#include "vemoview/resolve/mesh/ModelExtent.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
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

/// Of a canvas in a picture of the usual size.
/// @param size as a part of the window's
double widthToHeight(const Vector<2, double>& size) {
  return USUAL_WIDTH * size[0] / (USUAL_HEIGHT * size[1]);
}

/// @param size of the canvas, as a part of the window's
UsualCanvas usualCanvas(const CanvasCamera& camera, const ViewVolume& view, const Vector<2, double>& size,
                        const Box& model, double pictureHeight) {
  const double nearest =
      camera.isParallel || model.isEmpty() ? 0.0 : LEAST_DEPTH * view.greatestDepthOf(model);
  return {.view = view,
          .samples = PictureSamples(size),
          .nearest = nearest,
          .heightScale = pictureHeight / USUAL_HEIGHT};
}

}  // namespace

bool CanvasResolver::canShow(const lum::SceneCanvas& canvas) {
  return canvas.hasDrawableCollection() != nullptr && resolveViewport(canvas).has_value();
}

void CanvasResolver::reportOutside(const lum::SceneCanvas& canvas) {
  const lum::DrawableCollection* const drawables = canvas.hasDrawableCollection();
  if (drawables == nullptr || resolveViewport(canvas)) {
    return;
  }
  const bool isEmpty = std::ranges::all_of(visibleParts(*drawables), [](const lum::Drawable* drawable) {
    return dynamic_cast<const lum::DrawableCollection*>(drawable) != nullptr;
  });
  if (!isEmpty) {
    const NodeScope scope(canvas);
    reportFinding(FindingCode::SCENE_NOT_DRAWN,
                  "The canvas is outside the window or has no size: nothing of it is drawn");
  }
}

CanvasResolver::CanvasResolver(const lum::SceneCanvas& canvas, ResolvedCanvas::Role role,
                               const Background& background, const CameraIndices& cameras,
                               ColorTables& tables, const ResolveOptions& options)
    : _canvas(canvas),
      _role(role),
      _viewChange(role == ResolvedCanvas::Role::MODEL ? options.view : ViewChange()),
      _measureText(options.measureText),
      _clipPlanes(resolveClipPlanes(canvas.findAttributes<lum::ClipPlanesAttributes>())),
      _meshes(_clipPlanes.size(), tables, options),
      _decorations(background, cameras, tables) {}

ResolvedCanvas CanvasResolver::resolve() {
  const NodeScope scope(_canvas);
  const auto viewport = resolveViewport(_canvas).value();
  const auto* const base = _canvas.findAttributes<lum::BaseCanvasAttributes>();
  CanvasUpdate content = collectAdded();
  CanvasCamera camera = resolveCamera(_canvas.hasCameraAttributes());
  camera.viewAngle = _viewChange.viewAngle.value_or(camera.viewAngle);
  const Vector<2, double> size = viewport.upperRight - viewport.lowerLeft;
  _camera = camera;
  _size = size;
  if (const Box fitted = fittedBox(content); !fitted.isEmpty()) {
    _camera = fitting(camera, fitted, widthToHeight(size));
    view(content, _camera, size);
  } else if (camera.framesAll() || _viewChange.fitsModel) {
    frame(content, camera, size);
  } else {
    view(content, camera, size);
  }
  requireDrawn(content);
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

/// Around what is to fill the picture; empty for all of the model.
Box CanvasResolver::fittedBox(const CanvasUpdate& content) const {
  DrawableSet parts;
  for (const lum::Drawable* const drawable : _viewChange.fitted) {
    parts.merge(visibleParts(*drawable));
  }
  Box box;
  for (const MeshInstance& mesh : content.meshes) {
    if (parts.contains(mesh.drawable)) {
      box.add(seenBounds(mesh));
    }
  }
  return box;
}

/// In a view that shows everything.
void CanvasResolver::frame(CanvasUpdate& content, const CanvasCamera& camera, const Vector<2, double>& size) {
  const ModelExtent model(content.meshes, nullptr);
  _model = model.getBox();
  const Box framed = chooseFramedTexts(content.decorations, _model);
  reportUnframedTexts(content.decorations);
  const double side = framed.longestSide();
  if (side > 0.0) {
    const double shape = widthToHeight(size);
    const ViewVolume view(
        _viewChange.fitsModel ? fitting(camera, framed, shape) : framing(camera, framed, shape), shape);
    const UsualCanvas canvas = usualCanvas(camera, view, size, _model, _viewChange.pictureHeight);
    model.reportInvisible(canvas, _clipPlanes, side);
    reportUnseenDecorations(content.decorations, {&canvas, true, size, _clipPlanes, _measureText});
  } else {
    model.reportCollapsed();
    reportUnseenDecorations(content.decorations, {nullptr, true, size, _clipPlanes, _measureText});
  }
}

/// In a stated view.
void CanvasResolver::view(CanvasUpdate& content, const CanvasCamera& camera, const Vector<2, double>& size) {
  const ViewVolume view(camera, widthToHeight(size));
  const ModelExtent model(content.meshes, &view);
  // Users may frame everything later on.
  _model = model.getBox();
  const UsualCanvas canvas = usualCanvas(camera, view, size, _model, _viewChange.pictureHeight);
  model.reportUnsuitableView(canvas, _clipPlanes, camera);
  reportUnseenDecorations(content.decorations, {&canvas, false, size, _clipPlanes, _measureText});
  chooseFramedTexts(content.decorations, _model);
}

CanvasUpdate CanvasResolver::update() {
  const NodeScope scope(_canvas);
  CanvasUpdate result = collectAdded();
  _model.add(ModelExtent(result.meshes, nullptr).getBox());
  chooseFramedTexts(result.decorations, _model);
  requireDrawnOrTakeBack(result);
  return result;
}

CanvasUpdate CanvasResolver::collectAdded() {
  const auto visible = collectVisible(*_canvas.hasDrawableCollection());
  DrawableSet visibleNow;
  for (const VisibleDrawable& each : visible) {
    visibleNow.insert(each.drawable);
  }
  return resolve(visible, std::move(visibleNow));
}

CanvasUpdate CanvasResolver::resolveHidden() {
  const NodeScope scope(_canvas);
  CanvasUpdate result =
      resolve(collectAll(*_canvas.hasDrawableCollection()), visibleParts(*_canvas.hasDrawableCollection()));
  requireDrawnOrTakeBack(result);
  return result;
}

/// In the view of a picture, and in one of everything, which users may choose later on.
void CanvasResolver::requireDrawn(const CanvasUpdate& content) const {
  DrawnArea area(content.meshes, content.decorations);
  if (area.isSmall()) {
    return;
  }
  Box model = _model;
  model.add(area.bounds());
  const double shape = widthToHeight(_size);
  const auto require = [&](const CanvasCamera& camera) {
    const ViewVolume view(camera, shape);
    area.requireDrawn(usualCanvas(camera, view, _size, model, USUAL_HEIGHT), _size, _clipPlanes);
  };
  if (!_camera.framesAll()) {
    require(_camera);
  }
  // Images in the window are seen even if there is no model.
  require(fitting(_camera, model.isEmpty() ? Box{{0.0, 0.0, 0.0}, {1.0, 1.0, 1.0}} : model, shape));
}

void CanvasResolver::requireDrawnOrTakeBack(const CanvasUpdate& content) {
  try {
    requireDrawn(content);
  } catch (...) {
    takeBack();
    throw;
  }
}

/// Those that have not been resolved before.
CanvasUpdate CanvasResolver::resolve(const std::vector<VisibleDrawable>& drawables, DrawableSet visibleNow) {
  CanvasUpdate result;
  std::vector<VisibleDrawable> added;
  for (const VisibleDrawable& each : drawables) {
    if (!_resolved.contains(each.drawable)) {
      added.push_back(each);
    }
  }
  result.meshes = _meshes.resolve(added);
  _former = {{}, _decorations.getTaken(), _model};
  try {
    result.decorations = _decorations.resolve(added, visibleNow);
  } catch (...) {
    takeBack();
    throw;
  }
  for (const VisibleDrawable& each : added) {
    if (_resolved.insert(each.drawable).second) {
      _former.added.push_back(each.drawable);
    }
  }
  result.visible = std::move(visibleNow);
  return result;
}

void CanvasResolver::takeBack() {
  for (const lum::Drawable* const drawable : _former.added) {
    _resolved.erase(drawable);
  }
  _meshes.takeBack();
  _decorations.setTaken(_former.taken);
  _model = _former.model;
  _former.added.clear();
}

}  // namespace vemo
