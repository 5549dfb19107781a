#pragma once

#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/io/FileError.h>

#include <iosfwd>
#include <string>

namespace vemo {

/// As SceneFormatHandler::detectSceneFormat, and why a file cannot be opened or read.
struct DetectedFormat {
  SceneFormatHandler::SceneFormat format;
  /// The system's number; 0 if the file can be read, or must not be because it is not a regular one.
  int error = 0;
};

DetectedFormat detectFormat(const std::wstring& path, std::ostream& messages);

/// For a file that cannot be opened or read, with the cause if it is known: throws UnreadableFile, or
/// FileError (NotFound) for one that does not exist.
/// @param error the system's number; 0 if it is not known
[[noreturn]] void failToOpen(const std::wstring& path, int error);

}  // namespace vemo
