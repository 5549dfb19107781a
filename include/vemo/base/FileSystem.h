#pragma once

#include <vemo/base/Export.h>

#include <filesystem>
#include <string>

namespace vemo::OS {

/// Files by their wide paths. Nothing here throws because of a file.
class VEMO_BASE_EXPORT FileSystem {
 public:
  /// Asks the system where temporary files go.
  FileSystem();

  /// The absolute path, with links, "." and ".." resolved as far as files
  /// exist. A path that cannot be resolved (a circle of links, a name too long)
  /// is made absolute by its text alone; an empty one stays empty.
  std::wstring getFilePath(const std::wstring& path) const;

  /// Whether a file or folder is there; a link counts as what it leads to.
  bool exists(const std::wstring& path) const;

  /// Deletes a file, or a link itself. 0 on success, else the system's error
  /// number.
  int remove(const std::wstring& path) const;

  /// Makes a new, empty file that only this user may read, in the folder for
  /// temporary files, and gives its path. The name part appears in the name;
  /// it may be empty. Gives an empty path when no file can be made.
  std::wstring makeTemporaryFile(const std::wstring& namePart) const;

 private:
  std::filesystem::path _temporaryFolder;
};

}  // namespace vemo::OS
