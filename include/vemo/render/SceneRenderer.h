#pragma once

#include <vemo/render/Export.h>
#include <vemo/resolve/Pick.h>
#include <vemo/resolve/SceneResolver.h>

#include <memory>
#include <optional>
#include <span>

class vtkRenderWindow;
namespace lum {
class Drawable;
class SceneNode;
struct ViewDirection;
}  // namespace lum

namespace vemo {

/// How often a scene is drawn. What is drawn once, or a few times, takes little memory: as much of VTK's
/// objects as fits is kept, and the others are made at each drawing.
enum class Drawn { OFTEN, ONCE };

/// What a scene shows, ready for a render window on the screen or off it: one
/// renderer for each canvas, the background's at the bottom, then the model's,
/// the foreground's, the orientation's. The scene is not changed; its arrays
/// are shared. It must outlive the renderer. Its window is empty once the
/// renderer is destroyed.
class VEMO_RENDER_EXPORT SceneRenderer {
 public:
  /// Cameras are as the scene says, apart from the angle; of what the changed view does not show,
  /// findings tell. Throws SceneTooLarge.
  explicit SceneRenderer(const lum::SceneNode& scene, ViewChange view = {}, Drawn drawn = Drawn::OFTEN);
  ~SceneRenderer();
  SceneRenderer(const SceneRenderer&) = delete;
  SceneRenderer& operator=(const SceneRenderer&) = delete;

  /// Whether it has anything translucent. Such a scene is drawn without
  /// multisampling: VTK peels no layers from multisampled frame buffers.
  bool hasTranslucency() const;

  /// Whether something is drawn that multisampling does not make smooth: it
  /// leaves gaps within lines, dots beside edges of faces, and the rims of balls
  /// as they are.
  bool hasFineShapes() const;

  /// Makes lines and points wider by a factor, for pixels that are smaller than
  /// those of the scene.
  void scalePixels(double factor);

  /// Puts the renderers into a window, in the layers 0 and up, and has it
  /// multisampled if the scene allows it.
  void addTo(vtkRenderWindow& window, int samples);

  /// Follows changes of visibility in the scene (BaseAttributes::getVisibility
  /// of the drawables). Other changes of the scene are ignored. Unchanged parts
  /// are kept, so this is much faster than the constructor. Throws
  /// SceneTooLarge, and shows the same as before, when the newly visible parts
  /// are too large.
  void followVisibility();

  /// What is seen of the model at a pixel of the window, counted from its lower
  /// left corner: the nearest visible face, or the nearest line or point within
  /// a few pixels. The window has been drawn.
  std::optional<Pick> pick(const Vector<2, double>& pixel);

  /// Draws a box around all geometry that a drawable of the model shows; none
  /// for null.
  void outline(const lum::Drawable* drawable);

  /// Marks a point of the model; std::nullopt removes the mark.
  void mark(const std::optional<Vector3>& point);

  /// Whether box and mark are drawn.
  void showHighlight(bool isShown);

  /// Resets all cameras to the state when the scene was opened.
  void resetView();

  /// Frames the visible part of the model, seen from the current direction.
  void frameModel();

  /// The same, with no more room around it in parallel projection than a margin.
  void fitModel();

  /// The same of the visible geometry of some drawables of the model. False, without a
  /// change, when they show none.
  bool fit(std::span<const lum::Drawable* const> drawables);

  /// Fits the visible part of the model, seen from another direction in parallel
  /// projection.
  void look(const lum::ViewDirection& direction);

  /// Shows as much to the left and right of the model's view as if it were as wide, in
  /// relation to its height, as stated; no change to a view that is wider.
  void widen(double aspect);

  /// Looks at each canvas as another renderer of the same scene does.
  void copyView(const SceneRenderer& other);

  /// Fills the background with one colour: red, green, blue in 0..1.
  void setBackground(const Vector3& color);

 private:
  struct State;
  std::unique_ptr<State> _state;
};

}  // namespace vemo
