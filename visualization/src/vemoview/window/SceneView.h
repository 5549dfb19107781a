#pragma once

#include <vemo/base/Vector.h>
#include <vemo/render/Picture.h>
#include <vemo/render/SceneRenderer.h>
#include <vemo/window/Export.h>

#include <QPoint>
#include <QVTKOpenGLNativeWidget.h>
#include <functional>
#include <optional>

namespace lum {
class Drawable;
class SceneNode;
}  // namespace lum

namespace vemo {

struct Pick;

/// Draws a scene and turns it with the mouse: the left button turns, the middle
/// one (or the left with Shift) pans, the right one and the wheel zoom, and a
/// click picks.
class VEMO_WINDOW_EXPORT SceneView final : public QVTKOpenGLNativeWidget {
 public:
  using PickListener = std::function<void(const std::optional<Pick>&)>;

  /// The scene must be there as long as the view. Throws RenderError when it
  /// cannot be drawn.
  SceneView(const lum::SceneNode& scene, PickListener picked, QWidget* parent);
  ~SceneView() override;

  /// To be called before the QApplication is made.
  static void useFormatByDefault();

  /// Shows and hides what was shown and hidden in the scene. Throws RenderError
  /// when that cannot be drawn.
  void followVisibility();

  /// Surrounds a drawable of the model, and marks a point of it; what was
  /// surrounded and marked before is no more.
  void highlight(const lum::Drawable* drawable, const std::optional<Vector<3, double>>& point = {});

  /// The model is seen as in the beginning.
  void resetView();
  /// All of the model that is visible is seen.
  void frameModel();

  /// What is seen, without what is highlighted.
  Picture takePicture();

 protected:
  bool event(QEvent* event) override;

 private:
  void draw();
  /// Whether the mouse has only trembled since a button was pressed.
  bool isClick(const QPoint& place) const;
  void pick(const QPoint& place);

  SceneRenderer _scene;
  PickListener _picked;
  /// Where the left button was pressed, until the mouse is dragged from there.
  std::optional<QPoint> _pressed;
};

}  // namespace vemo
