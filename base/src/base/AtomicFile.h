#pragma once

#include <vemo/base/Export.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>

namespace vemo::OS {

/// A file could not be written. The text names the file and the reason.
class VEMO_BASE_EXPORT FileWriteError : public std::runtime_error {
 public:
  FileWriteError(const std::filesystem::path& file, const std::string& reason);
  ~FileWriteError() override;
};

/// The file that writing to a path creates or replaces: links are followed, even
/// when their target does not exist yet.
VEMO_BASE_EXPORT std::filesystem::path followLinks(std::filesystem::path path);

/// Writes a file atomically. Bytes go to a temporary file beside the target, named
/// *.tmp; `commit` renames it. An existing target keeps its permissions. All
/// failures are FileWriteError and name the target.
class VEMO_BASE_EXPORT AtomicFile {
 public:
  /// Follows links. Refuses a target that is not a regular file, and any existing
  /// target if `keepExisting`.
  explicit AtomicFile(const std::filesystem::path& path, bool keepExisting = false);
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  /// Removes the temporary file unless it was committed.
  ~AtomicFile();

  /// Writes at a position, which may lie beyond the end.
  void write(const void* data, std::size_t size, std::uint64_t position);

  /// Must be called at most once; nothing can be written afterwards.
  void commit();

 private:
  void inspectTarget();
  void makeTemporary();
  void syncFolder() const;
  [[noreturn]] void fail(int error) const;

  std::filesystem::path _target;
  std::filesystem::path _folder;
  std::filesystem::path _temporary;
  unsigned _permissions = 0;
  bool _hasTarget = false;
  bool _keepExisting;
  int _file = -1;
};

/// Writes an AtomicFile. What exists and is not a regular file (a pipe, a
/// device) is written in place.
VEMO_BASE_EXPORT void writeAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

}  // namespace vemo::OS
