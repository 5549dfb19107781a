#include "vemoview/window/Display.h"

#include <vemo/render/RenderErrors.h>

#include <QByteArray>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QSurfaceFormat>
#include <string>
#include <xcb/xcb.h>

namespace vemo {

namespace {

constexpr const char* PLATFORM_VARIABLE = "QT_QPA_PLATFORM";
constexpr const char* X_PLATFORM = "xcb";

bool canReachDisplay() {
  xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
  const bool isReached = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return isReached;
}

}  // namespace

void requireDisplay() {
  const QByteArray platform = qgetenv(PLATFORM_VARIABLE);
  if (!platform.isEmpty() && !platform.startsWith(X_PLATFORM)) {
    return;
  }
  if (!canReachDisplay()) {
    const std::string display = qgetenv("DISPLAY").toStdString();
    throw RenderingUnavailable(display.empty() ? "There is no display to open a window on: DISPLAY is not set"
                                               : "The display \"" + display + "\" cannot be reached");
  }
  // VTK's OpenGL needs an X window, even where Wayland is available.
  if (platform.isEmpty()) {
    qputenv(PLATFORM_VARIABLE, X_PLATFORM);
  }
}

void requireOpenGl() {
  QOffscreenSurface surface;
  surface.create();
  QOpenGLContext context;
  if (!context.create() || !context.makeCurrent(&surface)) {
    throw RenderingUnavailable("The display has no OpenGL");
  }
  const auto wanted = QSurfaceFormat::defaultFormat().version();
  if (context.format().version() < wanted) {
    throw RenderingUnavailable("The display's OpenGL is too old: version " + std::to_string(wanted.first) +
                               "." + std::to_string(wanted.second) + " is needed");
  }
}

}  // namespace vemo
