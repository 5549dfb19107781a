#include "vemoview/window/Display.h"
#include "vemoview/window/SceneView.h"
#include "vemoview/window/SceneWindow.h"
#include <vemo/window/ShowSceneWindow.h>

#include <QApplication>
#include <clocale>
#include <exception>

namespace vemo {

namespace {

/// Exceptions must not pass through Qt's event loop: the first one ends the loop
/// and is rethrown afterwards.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (...) {
      _failure = _failure ? _failure : std::current_exception();
      exit(1);
      return false;
    }
  }

  void run() {
    exec();
    if (_failure) {
      std::rethrow_exception(_failure);
    }
  }

 private:
  std::exception_ptr _failure;
};

}  // namespace

void showSceneWindow(lum::SceneNode& scene, const char* title) {
  requireDisplay();
  SceneView::useFormatByDefault();
  // Both must outlive the application.
  int count = 1;
  char name[] = "vemoscene";
  char* arguments[] = {name, nullptr};
  Application application(count, arguments);
  // Qt sets the user's locale; numbers in the picture must look as in pictures
  // drawn without a window.
  std::setlocale(LC_NUMERIC, "C");
  requireOpenGl();
  SceneWindow window(scene, QString::fromUtf8(title));
  window.show();
  application.run();
}

}  // namespace vemo
