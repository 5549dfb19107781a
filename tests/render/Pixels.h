#pragma once

#include <vemo/render/Picture.h>

#include <algorithm>
#include <cstdlib>

namespace vemo {

inline bool isNear(const Picture::Pixel& a, const Picture::Pixel& b, int tolerance) {
  return std::ranges::equal(a, b, [=](int x, int y) { return std::abs(x - y) <= tolerance; });
}

/// How many pixels something holds of, their columns, and their rows counted
/// from below; all 0 if of none.
struct PixelBox {
  int left = 0, right = 0, bottom = 0, top = 0;
  int count = 0;

  int width() const { return right - left; }
  int height() const { return top - bottom; }
};

template <class Predicate>
PixelBox boxWhere(const Picture& picture, const Predicate& holds) {
  PixelBox box{picture.getWidth(), 0, picture.getHeight(), 0};
  for (int row = 0; row < picture.getHeight(); ++row) {
    for (int column = 0; column < picture.getWidth(); ++column) {
      if (holds(picture.at(column, row))) {
        const int height = picture.getHeight() - row;
        box = {std::min(box.left, column), std::max(box.right, column + 1), std::min(box.bottom, height - 1),
               std::max(box.top, height), box.count + 1};
      }
    }
  }
  return box.count == 0 ? PixelBox{} : box;
}

inline PixelBox boxOf(const Picture& picture, const Picture::Pixel& color, int tolerance = 0) {
  return boxWhere(picture, [&](const Picture::Pixel& pixel) { return isNear(pixel, color, tolerance); });
}

/// All that is not the ground.
inline PixelBox inkOn(const Picture& picture, const Picture::Pixel& ground) {
  return boxWhere(picture, [&](const Picture::Pixel& pixel) { return pixel != ground; });
}

/// How many pixels have a colour, give or take some in each channel.
inline int countPixels(const Picture& picture, const Picture::Pixel& color, int tolerance = 2) {
  return boxOf(picture, color, tolerance).count;
}

/// How many pixels of two pictures differ by more than a tolerance in any
/// channel.
inline int countDifferences(const Picture& a, const Picture& b, int tolerance = 0) {
  int count = 0;
  for (int row = 0; row < a.getHeight(); ++row) {
    for (int column = 0; column < a.getWidth(); ++column) {
      count += isNear(a.at(column, row), b.at(column, row), tolerance) ? 0 : 1;
    }
  }
  return count;
}

}  // namespace vemo
