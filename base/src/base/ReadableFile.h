#pragma once

#include <vemo/base/Export.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace vemo::OS {

/// A file for reading at any position. It is not mapped: a mapped file that somebody cuts short,
/// or whose disk fails, ends the process. A read that fails is never taken for the end of the
/// file: all failures are std::system_error with the system's error number.
class VEMO_BASE_EXPORT ReadableFile {
 public:
  /// Opening a pipe blocks until there is a writer.
  explicit ReadableFile(const std::filesystem::path& path);
  ReadableFile(const ReadableFile&) = delete;
  ReadableFile& operator=(const ReadableFile&) = delete;
  ~ReadableFile();

  /// In bytes, when it was opened.
  std::uint64_t getSize() const { return _size; }

  /// Reads bytes from a position on. Returns how many there are: fewer than asked for only at
  /// the end of the file.
  std::size_t read(std::span<char> bytes, std::uint64_t position) const;

  /// The first bytes, of which there may be fewer.
  std::string readStart(std::size_t most) const;

 private:
  int _file;
  std::uint64_t _size = 0;
};

}  // namespace vemo::OS
