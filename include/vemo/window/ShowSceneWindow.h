#pragma once

#include <vemo/scenegraph/Ptr.h>
#include <vemo/window/Export.h>

#include <functional>
#include <string>

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

/// What a host knows about files.
struct SceneFiles {
  /// Opens the scene of a file. It may throw any std::exception, whose text the window shows; it
  /// goes on with the scene that it has.
  std::function<lum::Ptr<lum::SceneNode>(const std::string& path)> open;
  /// Whether a file could be a scene. The window skips others when the user asks for the next
  /// file of the folder.
  std::function<bool(const std::string& path)> isScene;
};

/// Ends the process when the display has gone or cannot be used, where Qt would end or abort it.
/// Must not return or throw.
using DisplayLost = std::function<void(const std::string& cause)>;

/// The same for the scene of a file, from which the user can go on to other files: one that
/// is chosen or dropped, or the next of the folder.
extern "C" VEMO_WINDOW_EXPORT void showSceneFile(const lum::Ptr<lum::SceneNode>& scene, const char* path,
                                                 const SceneFiles& files, const DisplayLost& lost);

}  // namespace vemo
