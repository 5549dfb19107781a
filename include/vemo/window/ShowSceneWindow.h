#pragma once

#include <vemo/window/Export.h>

namespace lum {
class SceneNode;
}

namespace vemo {

/// Opens a window that shows a scene and returns when the user has closed it. What
/// the user shows and hides changes in the scene (BaseAttributes). The title is
/// UTF-8, usually the name of the scene's file. Creates the process's QApplication:
/// call it at most once, on the main thread.
///
/// Throws RenderingUnavailable when there is no display or no OpenGL, and
/// SceneTooLarge for too large a scene, before any window appears.
///
/// Has C linkage so that a program can load the library on demand and find the
/// function by name (dlsym).
extern "C" VEMO_WINDOW_EXPORT void showSceneWindow(lum::SceneNode& scene, const char* title);

}  // namespace vemo
