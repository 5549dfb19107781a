#pragma once

#include "vemo_render_export.h"
#include "vemoview/render/CameraBook.h"

#include <vtkSmartPointer.h>

#include <vector>

class vtkRenderWindow;
class vtkRenderer;

namespace lum {
class SceneCanvas;
class SceneNode;
}  // namespace lum

/// What a scene shows, ready for a render window on the screen or off it: one
/// renderer for each canvas, the background's at the bottom, then the model's,
/// the foreground's, the orientation's. The scene is not changed and may go
/// afterwards; its arrays are shared.
class VEMO_RENDER_EXPORT SceneRenderer {
 public:
  explicit SceneRenderer(const lum::SceneNode& scene);
  ~SceneRenderer();
  SceneRenderer(const SceneRenderer&) = delete;
  SceneRenderer& operator=(const SceneRenderer&) = delete;

  /// Whether something in it is seen through. Such a scene is drawn without
  /// multisampling: VTK peels no layers from multisampled frame buffers.
  bool hasTranslucency() const;

  /// Makes lines and points wider by a factor, for pixels that are smaller than
  /// those that the scene means.
  void scalePixels(double factor);

  /// Puts the renderers into a window, in the layers 0 and up, and has it
  /// multisampled as far as the scene bears it.
  void addTo(vtkRenderWindow& window, int samples);

 private:
  void addBackground(const lum::SceneCanvas* canvas);
  void addLayer(const lum::SceneCanvas* canvas, CameraBook& cameras);

  /// From back to front.
  std::vector<vtkSmartPointer<vtkRenderer>> _layers;
};
