#pragma once

#include <vemo/base/Progress.h>
#include <vemo/import/Export.h>
#include <vemo/scenegraph/io/FileIoStatus.h>

#include <functional>
#include <iosfwd>
#include <list>
#include <string>

namespace vemo {

/// The entry point of the import module: opens scene files of both generations for a
/// host. Old ones are converted into temporary files, which are deleted when
/// the process ends. Used from one thread at a time.
class VEMO_IMPORT_EXPORT SceneFormatHandler {
 public:
  enum SceneFormat {
    UnknownFormat = 0,
    FileMissing = 1,
    FileUnreadable = 2,
    /// An old scene: a zip archive with an entry "scene.xml".
    ZippedScene = 3,
    /// A new scene: a scene-graph database.
    SceneDatabase = 4,
  };

  /// Opens a scene file of the new generation.
  using LoadingFunction = std::function<bool(const std::wstring& path)>;

  /// Detects the format of the file, converts it if it is an old scene, and
  /// calls the loading function with a scene-graph database. Returns
  ///
  /// - Success (0): the loading function returned true;
  /// - NotFound (2): the file does not exist;
  /// - UnsupportedFormat (3): the file is not a scene of either generation;
  /// - ReadError (5): the file cannot be opened or read, or the loading function returned
  ///   false.
  ///
  /// Progress is that of the conversion; a host that cancels it gets Cancelled.
  ///
  /// All but Success are explained on the message stream, with the system's cause if
  /// there is one. Exceptions from reading, converting and the loading function are
  /// passed on; OutputException is thrown if the conversion cannot be written. The
  /// loading function is called only with a complete database.
  static lum::io::FileIoStatus loadVemoScene(const std::wstring& path, LoadingFunction load,
                                             std::ostream& messages, const ProgressReport& progress = {});

  /// Throws the archive reader's exceptions for a file that only starts like a
  /// zip archive.
  static SceneFormat detectSceneFormat(const std::wstring& path, std::ostream& messages);

  /// Converts an old scene into a temporary file and returns its path. Throws
  /// OutputException when that file cannot be made or written.
  static std::wstring convertZippedScene(const std::wstring& path, const ProgressReport& progress = {});

  /// Deletes a temporary file that the process no longer needs. Other paths are ignored.
  static void releaseTemporaryFile(const std::wstring& path);

  /// Whether a zip archive holds an entry of exactly the name "scene.xml".
  static bool containsSceneInZip(const std::wstring& path);

  /// Whether a file that starts with these four bytes may be a zip archive.
  static bool isZipSignature(const char* bytes);

 private:
  static void clearTemporaryFiles();

  /// Outlives every at-exit function: it is never destroyed.
  static std::list<std::wstring>& _filesToDelete;
};

}  // namespace vemo
