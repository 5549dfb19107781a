#pragma once

#include <vemo/render/Export.h>
#include <vemo/render/Picture.h>
#include <vemo/resolve/UsualPicture.h>

namespace lum {
class SceneNode;
}

namespace vemo {

struct RenderOptions {
  /// In pixels, at least 1.
  int width = USUAL_WIDTH;
  int height = USUAL_HEIGHT;
};

/// Draws a scene off screen as a viewer would show it. Needs no display; the
/// calling thread keeps its current OpenGL context. Throws RenderingUnavailable
/// where there is no OpenGL, or none that draws pictures this large;
/// SceneTooLarge for too large a scene.
VEMO_RENDER_EXPORT Picture renderPicture(const lum::SceneNode& scene, const RenderOptions& options = {});

}  // namespace vemo
