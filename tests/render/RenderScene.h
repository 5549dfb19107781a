#pragma once

#include "support/SceneBuilder.h"
#include <vemo/render/ScenePicture.h>

#include <functional>

namespace vemo {

/// A small scene and its picture.
class RenderScene : public SceneBuilder {
 public:
  static constexpr int SIZE = 300;
  using Pixel = Picture::Pixel;

  Picture render() const { return renderPicture(node(), {SIZE, SIZE}); }
};

/// The pixel at model coordinates of a RenderScene.
Picture::Pixel at(const Picture& picture, double x, double y);

/// How many pixels have a colour, give or take some in each channel.
int countPixels(const Picture& picture, const Picture::Pixel& color, int tolerance = 2);

/// Of how many pixels something holds.
int countWhere(const Picture& picture, const std::function<bool(const Picture::Pixel&)>& holds);

/// How many pixels of two pictures differ by more than a tolerance in any
/// channel.
int countDifferences(const Picture& a, const Picture& b, int tolerance = 0);

/// The columns, and the rows counted from below, of the pixels that something
/// holds of; all 0 if of none.
struct PixelBox {
  int left = 0, right = 0, bottom = 0, top = 0;

  int width() const { return right - left; }
  int height() const { return top - bottom; }
};
PixelBox boxWhere(const Picture& picture, const std::function<bool(const Picture::Pixel&)>& holds);

}  // namespace vemo
