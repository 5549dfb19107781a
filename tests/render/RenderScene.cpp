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
  return addSurface(geometry, color, drawables());
}

lum::SurfaceDrawable& RenderScene::addSurface(vtkPolyData* geometry, const Color& color,
                                              lum::DrawableCollection& to) {
  auto& surface = add<lum::SurfaceDrawable>(geometry, to);
  surface.getColorAttributes()->setColor(color, false);
  return surface;
}

lum::DrawableCollection& RenderScene::collectionIn(lum::DrawableCollection& owner) {
  return owner.findOrCreate<lum::DrawableCollection>("collection " + std::to_string(owner.getNodeCount()));
}

void RenderScene::clip(const Vector<3, double>& normal, const Vector<3, double>& origin) {
  const auto plane = make<lum::Plane>();
  plane->setNormal(normal);
  plane->setOrigin(origin);
  canvas().getClipPlanesAttributes().getClippingPlanes().addNode(*plane);
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

namespace {

bool isNear(const Picture::Pixel& a, const Picture::Pixel& b, int tolerance) {
  return std::ranges::equal(a, b, [=](int x, int y) { return std::abs(x - y) <= tolerance; });
}

template <class Visit>
void forEachPixel(const Picture& picture, Visit&& visit) {
  for (int row = 0; row < picture.getHeight(); ++row) {
    for (int column = 0; column < picture.getWidth(); ++column) {
      visit(column, row, picture.at(column, row));
    }
  }
}

}  // namespace

Picture::Pixel at(const Picture& picture, double x, double y) {
  return picture.at(static_cast<int>((x + 1) / 2 * RenderScene::SIZE),
                    static_cast<int>((1 - y) / 2 * RenderScene::SIZE));
}

int countWhere(const Picture& picture, const std::function<bool(const Picture::Pixel&)>& holds) {
  int count = 0;
  forEachPixel(picture, [&](int, int, const auto& pixel) { count += holds(pixel) ? 1 : 0; });
  return count;
}

int countPixels(const Picture& picture, const Picture::Pixel& color, int tolerance) {
  return countWhere(picture, [&](const auto& pixel) { return isNear(pixel, color, tolerance); });
}

int countDifferences(const Picture& a, const Picture& b, int tolerance) {
  int count = 0;
  forEachPixel(a, [&](int column, int row, const auto& pixel) {
    count += isNear(pixel, b.at(column, row), tolerance) ? 0 : 1;
  });
  return count;
}

PixelBox boxWhere(const Picture& picture, const std::function<bool(const Picture::Pixel&)>& holds) {
  PixelBox box{picture.getWidth(), 0, picture.getHeight(), 0};
  forEachPixel(picture, [&](int column, int row, const auto& pixel) {
    if (holds(pixel)) {
      const int height = picture.getHeight() - row;
      box = {std::min(box.left, column), std::max(box.right, column + 1), std::min(box.bottom, height - 1),
             std::max(box.top, height)};
    }
  });
  return box.right == 0 ? PixelBox{} : box;
}

}  // namespace vemo
