#pragma once

#include <vemo/window/ShowSceneWindow.h>

#include <memory>

struct xcb_connection_t;

namespace vemo {

/// A connection to an X display. A display may end, or start anew, when its last one is closed.
struct CloseDisplay {
  void operator()(xcb_connection_t* connection) const;
};
using DisplayConnection = std::unique_ptr<xcb_connection_t, CloseDisplay>;

/// Throws RenderingUnavailable when no X display can be reached. Does not check another platform
/// that the user selects with the variable QT_QPA_PLATFORM; returns null then. Must be called
/// before the QApplication exists; the connection keeps the display until that has its own.
DisplayConnection requireDisplay();

/// Throws RenderingUnavailable when windows have no OpenGL, or too old a version.
/// Needs the QApplication.
void requireOpenGl();

/// During its lifetime, a function is called where Qt would end or abort the process for want of a
/// display. There can be one at a time.
class DisplayWatch {
 public:
  explicit DisplayWatch(DisplayLost lost);
  DisplayWatch(const DisplayWatch&) = delete;
  DisplayWatch& operator=(const DisplayWatch&) = delete;
  ~DisplayWatch();
};

}  // namespace vemo
