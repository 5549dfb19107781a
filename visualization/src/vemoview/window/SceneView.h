#pragma once

#include <vemo/base/Vector.h>
#include <vemo/render/Picture.h>
#include <vemo/render/SceneRenderer.h>
#include <vemo/scenegraph/edit/View.h>

#include <QPoint>
#include <QVTKOpenGLNativeWidget.h>
#include <functional>
#include <memory>
#include <optional>

namespace lum {
class Drawable;
class SceneNode;
}  // namespace lum

namespace vemo {

struct Pick;

/// Draws a scene and handles the mouse: the left button rotates, the middle one
/// (or the left one with Shift) pans, the right one and the wheel zoom, a click
/// picks.
class SceneView final : public QVTKOpenGLNativeWidget {
 public:
  using PickListener = std::function<void(const std::optional<Pick>&)>;

  /// The scene must outlive the view. Throws SceneTooLarge.
  SceneView(const lum::SceneNode& scene, PickListener picked, QWidget* parent);
  ~SceneView() override;

  /// Must be called before the QApplication exists.
  static void useFormatByDefault();

  /// Updates the picture after visibilities in the scene have changed. Throws
  /// SceneTooLarge.
  void followVisibility();

  /// Updates the picture after any change of the scene; the view and what is highlighted stay.
  /// Throws SceneTooLarge, and shows the same as before.
  void followScene();

  struct Highlight {
    /// Null for none. Must remain in the scene while it is highlighted.
    const lum::Drawable* drawable = nullptr;
    std::optional<Vector3> point;
  };
  /// Outlines a drawable of the model and marks a point of it, instead of those
  /// highlighted before.
  void highlight(const Highlight& wanted);

  /// Restores the initial view of the model.
  void resetView();
  /// Frames all visible parts of the model.
  void frameModel();
  /// Fits all visible parts of the model, seen along an axis.
  void look(lum::StandardView view);

  /// The current picture without highlights.
  Picture takePicture();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void draw();
  void showInitialView();
  void drawHighlight();
  /// Whether the mouse has moved so little since the button was pressed that this
  /// is a click.
  bool isClick(const QPoint& place) const;
  void pick(const QPoint& place);

  const lum::SceneNode& _node;
  std::unique_ptr<SceneRenderer> _scene;
  /// Until the user moves the camera, the view follows the size of the widget.
  bool _isInitialView = true;
  Highlight _highlight;
  PickListener _picked;
  /// Where the left button was pressed; empty once the mouse is dragged.
  std::optional<QPoint> _pressed;
};

}  // namespace vemo
