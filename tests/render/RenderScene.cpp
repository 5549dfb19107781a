#include "render/RenderScene.h"

#include <algorithm>
#include <cstdlib>

namespace vemo {

RenderScene::RenderScene() {
  lum::CameraAttributes& camera = canvas().getCameraAttributes();
  camera.setPosition({0, 0, 5});
  camera.setProjectionMode(lum::CameraAttributes::ProjectionMode::PARALLEL);
  camera.setParallelScale(1.0);
}

lum::SurfaceDrawable& RenderScene::addSurface(vtkPolyData* geometry, const Color& color) {
  auto& surface = add<lum::SurfaceDrawable>(geometry);
  surface.getColorAttributes()->setColor(color, false);
  return surface;
}

lum::DrawableCollection& RenderScene::collectionIn(lum::DrawableCollection& owner) {
  return owner.findOrCreate<lum::DrawableCollection>("collection " + std::to_string(owner.getNodeCount()));
}

namespace {

bool isNear(const Picture::Pixel& a, const Picture::Pixel& b, int tolerance) {
  return std::ranges::equal(a, b, [=](int x, int y) { return std::abs(x - y) <= tolerance; });
}

}  // namespace

int countPixels(const Picture& picture, const Picture::Pixel& color, int tolerance) {
  int count = 0;
  for (int row = 0; row < picture.getHeight(); ++row) {
    for (int column = 0; column < picture.getWidth(); ++column) {
      count += isNear(picture.at(column, row), color, tolerance) ? 1 : 0;
    }
  }
  return count;
}

int countDifferences(const Picture& a, const Picture& b, int tolerance) {
  int count = 0;
  for (int row = 0; row < a.getHeight(); ++row) {
    for (int column = 0; column < a.getWidth(); ++column) {
      count += isNear(a.at(column, row), b.at(column, row), tolerance) ? 0 : 1;
    }
  }
  return count;
}

}  // namespace vemo
