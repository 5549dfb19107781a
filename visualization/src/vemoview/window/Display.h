#pragma once

namespace vemo {

/// Throws RenderingUnavailable when no X display can be reached, where Qt would
/// abort the process. Does not check another platform that the user selects with
/// the variable QT_QPA_PLATFORM. Must be called before the QApplication exists.
void requireDisplay();

/// Throws RenderingUnavailable when windows have no OpenGL, or too old a version.
/// Needs the QApplication.
void requireOpenGl();

}  // namespace vemo
