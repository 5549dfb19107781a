#pragma once

#include <vemo/window/Export.h>

namespace lum {
class SceneNode;
}

namespace vemo {

/// Opens a window on a scene and returns when the user has closed it. What the
/// user shows and hides is shown and hidden in the scene (BaseAttributes). The
/// title is UTF-8, mostly the name of the scene's file. Makes the process's
/// QApplication, so that it is called at most once, from the main thread.
///
/// Throws RenderingUnavailable when there is no display or no OpenGL, and
/// RenderError when the scene cannot be drawn, before any window appears.
///
/// Has a plain name so that a program which mostly needs no window can load the
/// library when it needs one (dlsym).
extern "C" VEMO_WINDOW_EXPORT void showSceneWindow(lum::SceneNode& scene, const char* title);

}  // namespace vemo
