#include "render/RenderScene.h"

#include <algorithm>
#include <cstdlib>

namespace vemo {

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
