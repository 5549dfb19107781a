#include "vemoview/window/Display.h"
#include "vemoview/window/ErrorBox.h"
#include "vemoview/window/SceneView.h"
#include "vemoview/window/SceneWindow.h"
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/window/ShowSceneWindow.h>

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <clocale>
#include <exception>
#include <memory>
#include <utility>

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

/// The window on the scene of a file; a new one for each file.
class FileWindow {
 public:
  explicit FileWindow(SceneFiles files) : _files(std::move(files)) {}

  void show(const lum::Ptr<lum::SceneNode>& scene, const QString& path) {
    auto window = std::make_unique<SceneWindow>(*scene, titleOf(path));
    window->followFiles(path, {[this](const QString& other) { open(other); },
                               [this](const QString& other) { return _files.isScene(encode(other)); }});
    if (_window != nullptr) {
      window->restoreGeometry(_window->saveGeometry());
    }
    window->show();
    if (_window != nullptr) {
      // It may have asked for the new one, and is closed when it has answered; so does its scene.
      QObject::connect(_window.get(), &QObject::destroyed, [scene = _scene] {});
      _window->hide();
      _window.release()->deleteLater();
    }
    _window = std::move(window);
    _scene = scene;
  }

 private:
  void open(const QString& path) {
    try {
      show(load(path), path);
    } catch (const std::exception& error) {
      showError(_window.get(), titleOf(path), error);
    }
  }

  lum::Ptr<lum::SceneNode> load(const QString& path) const {
    struct WaitCursor {
      WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
      ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    };
    const WaitCursor cursor;
    return _files.open(encode(path));
  }

  static QString titleOf(const QString& path) { return QFileInfo(path).fileName(); }
  static std::string encode(const QString& path) { return QFile::encodeName(path).toStdString(); }

  SceneFiles _files;
  lum::Ptr<lum::SceneNode> _scene;
  std::unique_ptr<SceneWindow> _window;
};

/// Runs the process's application until the window that `open` shows is closed.
/// @param open returns what must live as long
template <class Open>
void runApplication(const Open& open) {
  DisplayConnection display = requireDisplay();
  SceneView::useFormatByDefault();
  // Both must outlive the application.
  int count = 1;
  char name[] = "vemoscene";
  char* arguments[] = {name, nullptr};
  Application application(count, arguments);
  display.reset();
  // Qt sets the user's locale; numbers in the picture must look as in pictures
  // drawn without a window.
  std::setlocale(LC_NUMERIC, "C");
  requireOpenGl();
  const auto window = open();
  application.run();
}

}  // namespace

void showSceneWindow(lum::SceneNode& scene, const char* title) {
  runApplication([&] {
    auto window = std::make_unique<SceneWindow>(scene, QString::fromUtf8(title));
    window->show();
    return window;
  });
}

void showSceneFile(const lum::Ptr<lum::SceneNode>& scene, const char* path, const SceneFiles& files,
                   const DisplayLost& lost) {
  const DisplayWatch watch(lost);
  runApplication([&] {
    auto window = std::make_unique<FileWindow>(files);
    window->show(scene, QFile::decodeName(path));
    return window;
  });
}

}  // namespace vemo
