#pragma once

namespace vemo {

/// Throws RenderingUnavailable when there is no X display that can be reached;
/// Qt would end the process. Another platform that the user asks Qt for, with
/// the variable QT_QPA_PLATFORM, is taken on trust. To be called before the
/// QApplication is made.
void requireDisplay();

/// Throws RenderingUnavailable when windows have no OpenGL, or an OpenGL that is
/// too old. There is a QApplication.
void requireOpenGl();

}  // namespace vemo
