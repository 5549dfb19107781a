#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>
#include <vemo/scenegraph/edit/Edges.h>

namespace lum {

bool areEdgesShown(SceneNode& scene) {
  bool areShown = false;
  forEachNodeOf<MeshAttributes>(
      scene, [&](const MeshAttributes& edges) { areShown = areShown || edges.getMeshVisible(); });
  return areShown;
}

void setEdgesShown(SceneNode& scene, bool areShown) {
  forEachNodeOf<SurfaceDrawable>(scene, [areShown](SurfaceDrawable& surface) {
    surface.getAttributes<MeshAttributes>().setMeshVisible(areShown, false);
  });
}

}  // namespace lum
