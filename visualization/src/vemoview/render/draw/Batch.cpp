#include "vemoview/render/draw/Batch.h"

#include "vemoview/render/draw/MeshProps.h"
#include "vemoview/render/draw/TransientMeshes.h"
#include "vemoview/render/resources/CanvasResources.h"

#include <vtkNew.h>

#include <algorithm>
#include <utility>

namespace vemo {

Batch::Batch(std::vector<MeshInstance> meshes, bool keepsProps, CanvasResources& resources)
    : _meshes(std::move(meshes)),
      _isShown(_meshes.size(), false),
      _isDrawn(_meshes.size(), false),
      _keepsProps(keepsProps),
      _resources(&resources) {}

void Batch::showAll(double pixelScale) {
  show(std::vector<bool>(_meshes.size(), true), pixelScale);
}

void Batch::show(const DrawableSet& visible, double pixelScale) {
  std::vector<bool> wanted(_meshes.size());
  std::transform(_meshes.begin(), _meshes.end(), wanted.begin(),
                 [&](const MeshInstance& mesh) { return visible.contains(mesh.drawable); });
  show(std::move(wanted), pixelScale);
}

void Batch::show(std::vector<bool> wanted, double pixelScale) {
  if (wanted == _isShown) {
    return;
  }
  _isShown = std::move(wanted);
  const bool isAnyShown = std::find(_isShown.begin(), _isShown.end(), true) != _isShown.end();
  if (isAnyShown && _isShown != _isDrawn) {
    make(pixelScale);
  }
  _props->show(isAnyShown);
}

void Batch::make(double pixelScale) {
  std::vector<const MeshInstance*> shown;
  forEachShown([&](const MeshInstance& mesh) { shown.push_back(&mesh); });
  _props = std::make_unique<PropGroup>(*_resources->renderer);
  if (_keepsProps) {
    addProps(shown, *_resources, *_props);
  } else {
    vtkNew<TransientMeshes> meshes;
    meshes->setMeshes(std::move(shown), *_resources, *_props);
    _props->add(meshes);
  }
  _props->scalePixels(pixelScale);
  _isDrawn = _isShown;
}

void Batch::scalePixels(double factor) {
  if (_props != nullptr) {
    _props->scalePixels(factor);
  }
}

}  // namespace vemo
