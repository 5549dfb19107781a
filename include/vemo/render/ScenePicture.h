#pragma once

#include <vemo/render/Export.h>
#include <vemo/render/Picture.h>
#include <vemo/resolve/UsualPicture.h>

#include <optional>
#include <vector>

namespace lum {
class Drawable;
class SceneNode;
}  // namespace lum

namespace vemo {

/// The most pixels of a picture each way that hosts should ask for.
inline constexpr int MAX_PICTURE_SIZE = 16384;

struct VEMO_RENDER_EXPORT RenderOptions {
  /// In pixels, at least 1.
  int width = USUAL_WIDTH;
  int height = USUAL_HEIGHT;
  /// For paper and fine screens: the picture has so many times as many pixels each way,
  /// and lines, points and texts are as much larger. Above 0.
  double scale = 1.0;
  /// Whether the picture has opacities, and nothing where only the background is.
  bool isTransparent = false;
  /// Of the model in perspective, from top to bottom, in degrees between 0 and 180;
  /// without it USUAL_VIEW_ANGLE.
  std::optional<double> viewAngle = std::nullopt;
  /// Whether the visible part of the model is to fill the picture, seen from the direction
  /// of the scene's camera.
  bool fitsModel = false;
  /// The same for some drawables of the model.
  std::vector<const lum::Drawable*> fitted = {};

  int scaledWidth() const;
  int scaledHeight() const;
};

/// Draws a scene off screen as a viewer would show it. Needs no display; the
/// calling thread keeps its current OpenGL context. Throws RenderingUnavailable
/// where there is no OpenGL, or none that draws pictures this large;
/// SceneTooLarge for too large a scene; NothingToFit when none of the drawables to be
/// fitted shows any geometry.
VEMO_RENDER_EXPORT Picture renderPicture(const lum::SceneNode& scene, const RenderOptions& options = {});

}  // namespace vemo
