#pragma once

#include <vemo/import/Export.h>

#include <cstddef>
#include <span>
#include <string>

namespace vemo {

enum class SceneKind {
  /// A zip archive of the old generation.
  ARCHIVE,
  /// A scene-graph database.
  DATABASE,
};

/// Throws lum::io::FileError, with the cause, for what does not exist, cannot be opened,
/// is empty or is not a file. Opening a pipe would wait for a writer, and reading a
/// scene needs seeking.
VEMO_IMPORT_EXPORT void requireReadable(const std::wstring& path);

/// The generation of the file. Throws lum::io::FileError for a file that does not exist,
/// cannot be opened, is a damaged database, or is of neither generation, which the text
/// explains; ZipException for a damaged archive.
VEMO_IMPORT_EXPORT SceneKind detectScene(const std::wstring& path);

/// The same for a scene in memory.
VEMO_IMPORT_EXPORT SceneKind detectScene(std::span<const std::byte> bytes);

}  // namespace vemo
