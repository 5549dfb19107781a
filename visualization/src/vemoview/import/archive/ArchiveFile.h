#pragma once

#include "base/ReadableFile.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace vemo {

/// The bytes of an archive, for reading at any position: those of a file, or of a
/// block of memory.
class ArchiveFile {
 public:
  /// Throws IOException when the file cannot be opened.
  explicit ArchiveFile(const std::wstring& path);
  /// The bytes must outlive this.
  explicit ArchiveFile(std::span<const std::byte> bytes) : _bytes(bytes), _size(bytes.size()) {}

  /// In bytes, when it was opened.
  std::uint64_t getSize() const { return _size; }

  /// False unless all of the bytes are there. Throws UnreadableException.
  bool read(std::span<char> bytes, std::uint64_t position) const;

 private:
  bool readFile(std::span<char> bytes, std::uint64_t position) const;

  std::optional<OS::ReadableFile> _file;
  std::span<const std::byte> _bytes;
  std::uint64_t _size = 0;
};

}  // namespace vemo
