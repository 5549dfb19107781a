#pragma once

#include <vemo/base/Export.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace vemo::OS {

/// A file that could not be written. The text names the file and the reason.
class VEMO_BASE_EXPORT FileWriteError : public std::runtime_error {
 public:
  FileWriteError(const std::filesystem::path& file, const std::string& reason);
  ~FileWriteError() override;
};

/// What is written when a path is: where its links lead, whether something
/// stands there yet or not.
VEMO_BASE_EXPORT std::filesystem::path followLinks(std::filesystem::path path);

/// A file that appears in its place whole or not at all. What is written goes
/// to a temporary file beside the target, named *.tmp; `commit` moves it there.
/// A target that exists keeps its permissions. All failures are FileWriteError
/// and name the target.
class VEMO_BASE_EXPORT AtomicFile {
 public:
  /// Links are followed: what they lead to is the target. A target that is no
  /// regular file is refused, and any that exists if `keepExisting`.
  explicit AtomicFile(const std::filesystem::path& path, bool keepExisting = false);
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  /// Removes what is not committed.
  ~AtomicFile();

  /// Writes at a position, which may lie beyond what is written yet.
  void write(const void* data, std::size_t size, std::uint64_t position);

  /// To be called once, after which nothing more can be written.
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

}  // namespace vemo::OS
