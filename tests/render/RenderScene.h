#pragma once

#include "render/Pixels.h"
#include "support/SceneBuilder.h"
#include <vemo/render/ScenePicture.h>

namespace vemo {

/// Width and height of pictures, in pixels.
inline constexpr int SIZE = 300;

inline constexpr Picture::Pixel BLACK = {0, 0, 0};
inline constexpr Picture::Pixel RED = {255, 0, 0};
inline constexpr Picture::Pixel GREEN = {0, 255, 0};

/// A small scene and its picture.
class RenderScene : public SceneBuilder {
 public:
  Picture render() const { return renderPicture(node(), {SIZE, SIZE}); }
};

inline lum::MeshAttributes& edgesOf(lum::SurfaceDrawable& surface) {
  return surface.getAttributes<lum::MeshAttributes>();
}
inline lum::LineAttributes& linesOf(lum::SurfaceDrawable& surface) {
  return surface.getAttributes<lum::LineAttributes>();
}

/// The pixel at model coordinates of a RenderScene.
inline Picture::Pixel at(const Picture& picture, double x, double y) {
  return picture.at(static_cast<int>((x + 1) / 2 * SIZE), static_cast<int>((1 - y) / 2 * SIZE));
}

}  // namespace vemo
