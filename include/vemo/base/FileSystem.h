#pragma once

#include <vemo/base/Export.h>

#include <filesystem>
#include <string>

namespace vemo::OS {

/// File operations by wide path. None of them throws because of a file.
class VEMO_BASE_EXPORT FileSystem {
 public:
  /// Looks up the folder for temporary files.
  FileSystem();

  /// The absolute path, with links, "." and ".." resolved as far as files
  /// exist. A path that cannot be resolved (circular links, a name too long)
  /// is made absolute lexically; an empty path stays empty.
  std::wstring getFilePath(const std::wstring& path) const;

  /// Whether a file or folder exists, or may exist in a folder that this user may
  /// not search. Links are followed.
  bool exists(const std::wstring& path) const;

  /// Deletes a file, or the link itself. Returns 0 on success, else the system's
  /// error number.
  int remove(const std::wstring& path) const;

  /// Creates an empty file that only this user may read, in the folder for
  /// temporary files, and returns its path; an empty path when that fails, and
  /// errno says why. The file's name contains the name part, which may be empty.
  std::wstring makeTemporaryFile(const std::wstring& namePart) const;

  /// Absolute.
  const std::filesystem::path& getTemporaryFolder() const { return _temporaryFolder; }

 private:
  std::filesystem::path _temporaryFolder;
};

}  // namespace vemo::OS
