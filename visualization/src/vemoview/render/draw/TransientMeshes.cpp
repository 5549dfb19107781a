#include "vemoview/render/draw/TransientMeshes.h"

#include "vemoview/render/draw/MeshProps.h"
#include "vemoview/render/resources/CanvasResources.h"
#include "vemoview/render/vtk/MeshActor.h"
#include "vemoview/render/vtk/PropGroup.h"

#include <vtkBoundingBox.h>
#include <vtkMapper.h>
#include <vtkMath.h>
#include <vtkObjectFactory.h>
#include <vtkProperty.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <utility>

namespace vemo {

vtkStandardNewMacro(TransientMeshes);

void TransientMeshes::setMeshes(std::vector<const MeshInstance*> meshes, CanvasResources& resources,
                                const PropGroup& group) {
  _meshes = std::move(meshes);
  _resources = &resources;
  _group = &group;
  vtkMath::UninitializeBounds(_bounds.data());
  makeActors(_meshes, resources, [this](MeshActor& actor) { learn(actor); });
}

void TransientMeshes::learn(MeshActor& actor) {
  _isOpaque = _isOpaque || actor.HasOpaqueGeometry() != 0;
  _isTranslucent = _isTranslucent || actor.HasTranslucentPolygonalGeometry() != 0;
  _hasFineShapes = _hasFineShapes || showsFineShapes(actor);
  _roomBehind = std::max(_roomBehind, actor.getRoomBehind());
  const double* const bounds = actor.GetBounds();
  if (bounds != nullptr && vtkMath::AreBoundsInitialized(bounds) != 0) {
    vtkBoundingBox all(_bounds.data());
    all.AddBounds(bounds);
    all.GetBounds(_bounds.data());
  }
}

double TransientMeshes::getRoomBehind() {
  return _roomBehind * _group->getPixelScale();
}

double* TransientMeshes::GetBounds() {
  return _bounds.data();
}

template <class Draw>
int TransientMeshes::drawEach(Draw&& draw) {
  int drawn = 0;
  vtkSmartPointer<vtkProperty> scaled;
  makeActors(_meshes, *_resources, [&](MeshActor& actor) {
    // Instances share it.
    if (actor.GetProperty() != scaled) {
      scaled = actor.GetProperty();
      PropGroup::scalePixels(*scaled, _group->getPixelScale());
    }
    // Passes that sort what is translucent have put their shaders there.
    actor.SetPropertyKeys(GetPropertyKeys());
    drawn = std::max(drawn, draw(actor));
    _resources->recentMappers.keep(*actor.GetMapper());
  });
  return drawn;
}

int TransientMeshes::RenderOpaqueGeometry(vtkViewport* viewport) {
  return _isOpaque ? drawEach([&](MeshActor& actor) { return actor.RenderOpaqueGeometry(viewport); }) : 0;
}

int TransientMeshes::RenderTranslucentPolygonalGeometry(vtkViewport* viewport) {
  return _isTranslucent
             ? drawEach([&](MeshActor& actor) { return actor.RenderTranslucentPolygonalGeometry(viewport); })
             : 0;
}

void TransientMeshes::ReleaseGraphicsResources(vtkWindow* window) {
  _resources->recentMappers.release(window);
}

}  // namespace vemo
