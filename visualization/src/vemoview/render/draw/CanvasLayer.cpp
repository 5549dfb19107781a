#include "vemoview/render/draw/CanvasLayer.h"

#include "vemoview/render/draw/BatchGroups.h"
#include "vemoview/render/vtk/Screen.h"
#include "vemoview/render/vtk/View.h"
#include "vemoview/resolve/drawables/InstanceBounds.h"
#include <vemo/resolve/Picker.h>

#include <vtkRenderer.h>

#include <utility>

namespace vemo {

CanvasLayer::CanvasLayer(ResolvedCanvas canvas)
    : _canvas(std::move(canvas)),
      _resources(makeResources(_canvas, *makeRenderer(_canvas))),
      _decorations(_resources) {}

void CanvasLayer::fill(const CanvasCameras& cameras, PropBudget& budget) {
  addBatches(plan(std::exchange(_canvas.meshes, {}), budget));
  for (Batch& batch : _batches) {
    batch.showAll(_pixelScale);
  }
  addDecorations(std::exchange(_canvas.decorations, {}), cameras);
  setLights(getRenderer(), _canvas.lights);
  resetView();
}

CanvasLayer::PlannedBatches CanvasLayer::plan(std::vector<MeshInstance> meshes, PropBudget& budget) const {
  PlannedBatches planned{groupIntoBatches(std::move(meshes)), {}};
  planned.keepProps = budget.add(planned.batches, _canvas.clipPlanes.size());
  return planned;
}

void CanvasLayer::update(const CanvasUpdate& update, PlannedBatches added, const CanvasCameras& cameras) {
  addBatches(std::move(added));
  addDecorations(update.decorations, cameras);
  for (Batch& batch : _batches) {
    batch.show(update.visible, _pixelScale);
  }
  _decorations.show(update.visible);
  getRenderer().ResetCameraClippingRange();
}

void CanvasLayer::addBatches(PlannedBatches planned) {
  for (std::size_t i = 0; i < planned.batches.size(); ++i) {
    _batches.emplace_back(std::move(planned.batches[i]), planned.keepProps[i], _resources);
  }
}

void CanvasLayer::addDecorations(const std::vector<Decoration>& decorations, const CanvasCameras& cameras) {
  _placesOfTexts.add(framedPlaces(decorations));
  _decorations.add(decorations, cameras);
}

void CanvasLayer::scalePixels(double factor) {
  _pixelScale *= factor;
  for (Batch& batch : _batches) {
    batch.scalePixels(factor);
  }
  _decorations.scalePixels(factor);
}

std::optional<Pick> CanvasLayer::pick(const Vector<2, double>& pixel) const {
  auto ray = PickRay::through(pickViewOf(getRenderer()), pixel);
  if (!ray) {
    return std::nullopt;
  }
  ray->pixelAtOrigin *= _pixelScale;
  ray->pixelGrowth *= _pixelScale;
  Picker picker(*ray, _canvas.clipPlanes);
  for (const Batch& batch : _batches) {
    batch.forEachShown([&](const MeshInstance& mesh) { picker.test(mesh); });
  }
  return picker.getNearest();
}

void CanvasLayer::resetView() {
  setCamera(getRenderer(), _canvas.camera, _placesOfTexts);
}

void CanvasLayer::look(const CanvasCamera& camera) {
  setCamera(getRenderer(), camera, _placesOfTexts);
}

void CanvasLayer::fit() {
  if (const Box bounds = visibleBounds(getRenderer(), _placesOfTexts); !bounds.isEmpty()) {
    fit(bounds);
  }
}

void CanvasLayer::fit(const Box& box) {
  fitBox(getRenderer(), box);
  getRenderer().ResetCameraClippingRange();
}

void CanvasLayer::frameAll() {
  vemo::frameAll(getRenderer(), _placesOfTexts);
}

Box CanvasLayer::boundsOf(const DrawableSet& drawables) const {
  Box box;
  for (const Batch& batch : _batches) {
    batch.forEachShown([&](const MeshInstance& mesh) {
      if (drawables.contains(mesh.drawable)) {
        box.add(seenBounds(mesh));
      }
    });
  }
  return box;
}

}  // namespace vemo
