#pragma once

#include <vemo/render/Export.h>
#include <vemo/render/Pick.h>

#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <memory>
#include <optional>
#include <vector>

class vtkRenderWindow;
class vtkRenderer;
namespace lum {
class Drawable;
class SceneCanvas;
class SceneNode;
}  // namespace lum

namespace vemo {

class CanvasLayer;
struct CameraBook;
class Highlight;

/// What a scene shows, ready for a render window on the screen or off it: one
/// renderer for each canvas, the background's at the bottom, then the model's,
/// the foreground's, the orientation's. The scene is not changed; its arrays
/// are shared. It must be there as long as this follows it, or picks in it.
/// The window shows nothing any more when this is gone.
class VEMO_RENDER_EXPORT SceneRenderer {
 public:
  /// Throws RenderError when the scene is too large to be drawn.
  explicit SceneRenderer(const lum::SceneNode& scene);
  ~SceneRenderer();
  SceneRenderer(const SceneRenderer&) = delete;
  SceneRenderer& operator=(const SceneRenderer&) = delete;

  /// Whether something in it is seen through. Such a scene is drawn without
  /// multisampling: VTK peels no layers from multisampled frame buffers.
  bool hasTranslucency() const;

  /// Whether something is drawn that multisampling does not make smooth: it
  /// leaves gaps within lines, dots beside edges of faces, and the rims of balls
  /// as they are.
  bool hasFineShapes() const;

  /// Makes lines and points wider by a factor, for pixels that are smaller than
  /// those that the scene means.
  void scalePixels(double factor);

  /// Puts the renderers into a window, in the layers 0 and up, and has it
  /// multisampled as far as the scene bears it.
  void addTo(vtkRenderWindow& window, int samples);

  /// Shows and hides what is visible in the scene now, and was not before, or
  /// the other way round (BaseAttributes::getVisibility of the drawables).
  /// Other changes of the scene are not followed. What did not change is not
  /// made anew: this takes a small part of the time of the constructor. Throws
  /// RenderError, and shows what it did, when what is to be shown is too large.
  void followVisibility();

  /// What is seen of the model at a pixel of the window, counted from its lower
  /// left corner: the nearest visible face, or the nearest line or point within
  /// a few pixels. The window has been drawn.
  std::optional<Pick> pick(const Vector<2, double>& pixel);

  /// Draws a box around all geometry that a drawable of the model shows; none
  /// for null.
  void outline(const lum::Drawable* drawable);

  /// Marks a point of the model; std::nullopt takes the mark away.
  void mark(const std::optional<Vector<3, double>>& point);

  /// Whether box and mark are drawn.
  void showHighlight(bool isShown);

  /// The model is seen as when the scene was opened.
  void resetView();

  /// All of the model that is visible is seen, from the direction of now.
  void frameModel();

 private:
  void addBackground(const lum::SceneCanvas* canvas);
  CanvasLayer* addLayer(const lum::SceneCanvas* canvas);
  std::vector<vtkRenderer*> renderers() const;
  void setSamples();
  Highlight* highlight();

  std::unique_ptr<CameraBook> _cameras;
  vtkSmartPointer<vtkRenderer> _background;
  /// From back to front.
  std::vector<std::unique_ptr<CanvasLayer>> _layers;
  /// Null when the scene has no model.
  CanvasLayer* _model = nullptr;
  std::unique_ptr<Highlight> _highlight;
  vtkWeakPointer<vtkRenderWindow> _window;
  int _samples = 0;
  double _pixelScale = 1.0;
};

}  // namespace vemo
