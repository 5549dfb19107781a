#include "vemoview/window/SceneView.h"

#include <vemo/resolve/Pick.h>
#include <vemo/resolve/UsualPicture.h>

#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkInteractorStyleTrackballCamera.h>
#include <vtkNew.h>
#include <vtkRenderWindowInteractor.h>

#include <QMouseEvent>
#include <QSurfaceFormat>
#include <cmath>
#include <utility>

namespace vemo {

namespace {

/// Samples per pixel, for smooth edges.
constexpr int SAMPLES = 8;

}  // namespace

void SceneView::useFormatByDefault() {
  QSurfaceFormat format = QVTKOpenGLNativeWidget::defaultFormat();
  // VTK draws into its own multisampled buffers.
  format.setSamples(0);
  QSurfaceFormat::setDefaultFormat(format);
}

SceneView::SceneView(const lum::SceneNode& scene, PickListener picked, QWidget* parent)
    : QVTKOpenGLNativeWidget(parent),
      _node(scene),
      _scene(std::make_unique<SceneRenderer>(scene)),
      _picked(std::move(picked)) {
  setObjectName("view");
  const vtkNew<vtkGenericOpenGLRenderWindow> window;
  setRenderWindow(window.Get());
  const vtkNew<vtkInteractorStyleTrackballCamera> style;
  interactor()->SetInteractorStyle(style);
  _scene->scalePixels(devicePixelRatioF());
  _scene->addTo(*window, SAMPLES);
}

SceneView::~SceneView() {
  // OpenGL resources must be released while their context exists.
  makeCurrent();
}

void SceneView::draw() {
  if (isValid()) {
    renderWindow()->Render();
  }
}

void SceneView::followVisibility() {
  makeCurrent();
  _scene->followVisibility();
  draw();
}

void SceneView::highlight(const Highlight& wanted) {
  _highlight = wanted;
  makeCurrent();
  drawHighlight();
  draw();
}

void SceneView::drawHighlight() {
  _scene->outline(_highlight.drawable);
  _scene->mark(_highlight.point);
}

/// As wide as pictures are by default: a file says how high its view is, for a width that is
/// not known, and the panels beside it make the widget narrow.
void SceneView::showInitialView() {
  _scene->resetView();
  _scene->widen(USUAL_ASPECT);
}

void SceneView::resetView() {
  _isInitialView = true;
  showInitialView();
  draw();
}

void SceneView::resizeEvent(QResizeEvent* event) {
  // Before the event is handled, which draws.
  if (_isInitialView) {
    renderWindow()->SetSize(static_cast<int>(std::lround(width() * devicePixelRatioF())),
                            static_cast<int>(std::lround(height() * devicePixelRatioF())));
    showInitialView();
  }
  QVTKOpenGLNativeWidget::resizeEvent(event);
}

void SceneView::look(lum::StandardView view) {
  _isInitialView = false;
  _scene->look(lum::directionOf(view));
  draw();
}

void SceneView::followScene() {
  makeCurrent();
  auto scene = std::make_unique<SceneRenderer>(_node);
  scene->scalePixels(devicePixelRatioF());
  scene->copyView(*_scene);
  // It leaves the window.
  _scene.reset();
  _scene = std::move(scene);
  _scene->addTo(*renderWindow(), SAMPLES);
  drawHighlight();
  draw();
}

void SceneView::frameModel() {
  _isInitialView = false;
  _scene->frameModel();
  draw();
}

Picture SceneView::takePicture() {
  makeCurrent();
  _scene->showHighlight(false);
  draw();
  Picture picture = Picture::of(*renderWindow());
  _scene->showHighlight(true);
  draw();
  return picture;
}

bool SceneView::isClick(const QPoint& place) const {
  constexpr int CLICK_TOLERANCE = 4;
  return _pressed && (place - *_pressed).manhattanLength() <= CLICK_TOLERANCE;
}

void SceneView::pick(const QPoint& place) {
  const double scale = devicePixelRatioF();
  constexpr double MIDDLE = 0.5;
  _picked(_scene->pick({(place.x() + MIDDLE) * scale, (height() - place.y() - MIDDLE) * scale}));
}

bool SceneView::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      // Not passed on to VTK, which has its own key bindings.
      return QOpenGLWidget::event(event);  // NOLINT(bugprone-parent-virtual-call)
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      _pressed = mouse.button() == Qt::LeftButton ? std::optional(mouse.pos()) : std::nullopt;
      return QVTKOpenGLNativeWidget::event(event);
    }
    case QEvent::MouseMove:
      if (isClick(static_cast<const QMouseEvent&>(*event).pos())) {
        return true;
      }
      _pressed.reset();
      _isInitialView = _isInitialView && static_cast<const QMouseEvent&>(*event).buttons() == Qt::NoButton;
      return QVTKOpenGLNativeWidget::event(event);
    case QEvent::Wheel:
      _isInitialView = false;
      return QVTKOpenGLNativeWidget::event(event);
    case QEvent::MouseButtonRelease: {
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      const bool isHandled = QVTKOpenGLNativeWidget::event(event);
      if (mouse.button() == Qt::LeftButton && isClick(mouse.pos())) {
        pick(mouse.pos());
      }
      _pressed.reset();
      return isHandled;
    }
    default:
      return QVTKOpenGLNativeWidget::event(event);
  }
}

}  // namespace vemo
