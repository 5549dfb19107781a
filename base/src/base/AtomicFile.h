#pragma once

#include "base/AccessList.h"
#include <vemo/base/Export.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <sys/stat.h>

namespace vemo::OS {

/// A file could not be written. The text names the file and the reason.
class VEMO_BASE_EXPORT FileWriteError : public std::runtime_error {
 public:
  FileWriteError(const std::filesystem::path& file, const std::string& reason);
  ~FileWriteError() override;
};

/// The file that writing to a path creates or replaces: links are followed, even
/// when their target does not exist yet. A link to a file without a name (as in /proc) is returned.
VEMO_BASE_EXPORT std::filesystem::path followLinks(std::filesystem::path path);

/// Writes a file atomically. Bytes go to a file without a name in the target's folder, which
/// `commit` names; nothing is left of it, whatever ends the process before. To replace a target,
/// it is named *.tmp for two system calls; where it cannot be without a name (NFS, FUSE,
/// no /proc), it is named so from the start. An existing target keeps its owner, group,
/// permissions and access list. All failures are FileWriteError and name the target.
class VEMO_BASE_EXPORT AtomicFile {
 public:
  /// Follows links. Refuses a target that is not a regular file, has no name or that this user
  /// may not write, and any existing target if `keepExisting`.
  explicit AtomicFile(const std::filesystem::path& path, bool keepExisting = false);
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  /// Removes the temporary file unless it was committed.
  ~AtomicFile();

  /// Writes at a position, which may lie beyond the end.
  void write(const void* data, std::size_t size, std::uint64_t position);

  /// Where this process can read the bytes until `commit`.
  const std::filesystem::path& getTemporaryPath() const;

  /// Must be called at most once; nothing can be written afterwards. If it fails, the target is as
  /// before; only if the text says that the file is in place, it is the new one.
  void commit();

 private:
  class Temporary;
  class UnnamedFile;
  class NamedFile;

  void requireName() const;
  void inspectTarget();
  void makeTemporary();
  void keepOwner() const;
  void keepPermissions() const;
  void syncFolder() const;
  [[noreturn]] void fail(int error) const;
  [[noreturn]] void fail(const std::string& reason, int error) const;

  /// For messages.
  std::filesystem::path _target;
  /// The same, still valid when the working folder changes.
  std::filesystem::path _place;
  /// Kept: once the file is in place, nothing may fail, not even for want of memory.
  std::filesystem::path _folder;
  /// Of the target; none when it does not exist.
  std::optional<struct stat> _former;
  AccessList _formerAccess;
  bool _keepExisting;
  std::unique_ptr<Temporary> _temporary;
};

/// Removes the temporary files of all uncommitted AtomicFiles of this process: for
/// a process that is about to be ended by a signal, which calls no destructors. From then
/// on, threads that give an AtomicFile a name, or take it away, block until the process ends.
VEMO_BASE_EXPORT void removeUncommittedFiles();

/// Writes an AtomicFile from its beginning to its end. What exists and is not a regular file
/// (a pipe, a device) is written in place. Failures are FileWriteError, too.
class VEMO_BASE_EXPORT SequentialFile {
 public:
  explicit SequentialFile(const std::filesystem::path& path);
  SequentialFile(const SequentialFile&) = delete;
  SequentialFile& operator=(const SequentialFile&) = delete;
  ~SequentialFile();

  void append(std::span<const std::uint8_t> bytes);

  /// Must be called at most once; nothing can be appended afterwards.
  void commit();

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  [[noreturn]] void fail() const;

  std::filesystem::path _path;
  std::unique_ptr<std::FILE, CloseFile> _special;
  std::optional<AtomicFile> _file;
  std::uint64_t _size = 0;
};

/// Writes a SequentialFile of these bytes.
VEMO_BASE_EXPORT void writeAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

}  // namespace vemo::OS
