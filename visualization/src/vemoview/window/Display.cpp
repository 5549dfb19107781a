#include "vemoview/window/Display.h"

#include <vemo/render/RenderErrors.h>

#include <QByteArray>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QSurfaceFormat>
#include <QtGlobal>
#include <string>
#include <utility>
#include <xcb/xcb.h>

namespace vemo {

namespace {

constexpr const char* PLATFORM_VARIABLE = "QT_QPA_PLATFORM";
constexpr const char* X_PLATFORM = "xcb";

std::string describeDisplay(const char* fate) {
  return "The display \"" + qgetenv("DISPLAY").toStdString() + "\" " + fate;
}

DisplayConnection connectToDisplay() {
  return DisplayConnection(xcb_connect(nullptr, nullptr));
}

bool isReached(const DisplayConnection& connection) {
  return xcb_connection_has_error(connection.get()) == 0;
}

/// Qt's own text does not say that the display has gone.
std::string describeFatal(const QString& text) {
  const bool isLost = qgetenv(PLATFORM_VARIABLE).startsWith(X_PLATFORM) && !isReached(connectToDisplay());
  return isLost ? describeDisplay("cannot be reached") : text.simplified().toStdString();
}

/// Empty without a DisplayWatch. Never destroyed: it ends the process.
DisplayLost& displayLost() {
  static auto& function = *new DisplayLost;
  return function;
}

QtMessageHandler formerHandler = nullptr;

/// Qt ends the process behind these messages.
void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtFatalMsg) {
    displayLost()(describeFatal(text));
  }
  if (text.startsWith("The X11 connection broke")) {
    displayLost()(describeDisplay("went away"));
  }
  formerHandler(type, context, text);
}

}  // namespace

void CloseDisplay::operator()(xcb_connection_t* connection) const {
  xcb_disconnect(connection);
}

DisplayConnection requireDisplay() {
  const QByteArray platform = qgetenv(PLATFORM_VARIABLE);
  if (!platform.isEmpty() && !platform.startsWith(X_PLATFORM)) {
    return nullptr;
  }
  DisplayConnection connection = connectToDisplay();
  if (!isReached(connection)) {
    throw RenderingUnavailable(qEnvironmentVariableIsEmpty("DISPLAY")
                                   ? "There is no display to open a window on: DISPLAY is not set"
                                   : describeDisplay("cannot be reached"));
  }
  // VTK's OpenGL needs an X window, even where Wayland is available.
  if (platform.isEmpty()) {
    qputenv(PLATFORM_VARIABLE, X_PLATFORM);
  }
  return connection;
}

DisplayWatch::DisplayWatch(DisplayLost lost) {
  displayLost() = std::move(lost);
  formerHandler = qInstallMessageHandler(handleMessage);
}

DisplayWatch::~DisplayWatch() {
  qInstallMessageHandler(formerHandler);
  displayLost() = nullptr;
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
