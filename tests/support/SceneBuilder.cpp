#include "support/SceneBuilder.h"

namespace vemo {

SceneBuilder::SceneBuilder() {
  lum::CameraAttributes& camera = canvas().getCameraAttributes();
  camera.setPosition({0, 0, 5});
  camera.setProjectionMode(lum::CameraAttributes::ProjectionMode::PARALLEL);
  camera.setParallelScale(1.0);
}

lum::SurfaceDrawable& SceneBuilder::addSurface(vtkPolyData* geometry, const Color& color) {
  return addSurface(geometry, color, drawables());
}

lum::SurfaceDrawable& SceneBuilder::addSurface(vtkPolyData* geometry, const Color& color,
                                               lum::DrawableCollection& to) {
  auto& surface = add<lum::SurfaceDrawable>(geometry, to);
  surface.getColorAttributes()->setColor(color, false);
  return surface;
}

lum::DrawableCollection& SceneBuilder::collectionIn(lum::DrawableCollection& owner) {
  return owner.findOrCreate<lum::DrawableCollection>("collection " + std::to_string(owner.getNodeCount()));
}

void SceneBuilder::forgetView() {
  const auto fresh = make<lum::CameraAttributes>();
  lum::CameraAttributes& camera = canvas().getCameraAttributes();
  camera.setPosition(fresh->getPosition());
  camera.setProjectionMode(fresh->getProjectionMode());
  camera.setParallelScale(fresh->getParallelScale());
}

void SceneBuilder::clip(const Vector3& normal, const Vector3& origin) {
  const auto plane = make<lum::Plane>();
  plane->setNormal(normal);
  plane->setOrigin(origin);
  canvas().getClipPlanesAttributes().getClippingPlanes().addNode(*plane);
}

lum::PeriodicRepeatTransform& repeat(lum::Drawable& drawable, const Vector3& step, int count) {
  auto& transform = setTransform<lum::PeriodicRepeatTransform>(drawable);
  transform.setTranslation(step);
  transform.setNumRepeats(count);
  return transform;
}

lum::ColorLookupTable& colorByArray(lum::GeometryDrawable& drawable, const std::string& array,
                                    lum::DataLocation location, const std::vector<double>& colors) {
  drawable.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  drawable.getAttributes<lum::DataLocationAttributes>().setDataLocation(location);
  auto& scalars = drawable.getAttributes<lum::ScalarAttributes>();
  scalars.getDataArray().setDataArrayName(array);
  auto& table = scalars.getColorLookupTable();
  table.setColorValues(colors);
  table.setNumColor(static_cast<int>(colors.size() / 4));
  return table;
}

}  // namespace vemo
