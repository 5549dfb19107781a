#pragma once

#include "base/AtomicFile.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace lum::io {

/// Writes a file from its beginning to its end, small pieces together; it
/// appears in its place whole or not at all. All failures are
/// vemo::OS::FileWriteError.
class OutputFile {
 public:
  /// A target that is not a regular file is refused, and any that exists if
  /// `keepExisting`.
  OutputFile(const std::string& path, bool keepExisting) : _file(path, keepExisting) {}

  void write(const void* data, std::size_t size);
  void fill(std::size_t size);

  /// Writes over the beginning of the file, after all else.
  void writeFirst(const std::string& bytes);

  /// Where the bytes are until `commit`; all of them after `writeFirst`.
  const std::filesystem::path& getTemporaryPath() const { return _file.getTemporaryPath(); }

  /// How much was written.
  std::uint64_t getPosition() const { return _written + _buffer.size(); }

  void commit();

 private:
  void flush();

  vemo::OS::AtomicFile _file;
  std::string _buffer;
  std::uint64_t _written = 0;
};

}  // namespace lum::io
