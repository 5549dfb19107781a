#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace vemo {

/// The bytes of an archive, for reading at any position: those of a file, or of a
/// block of memory. A file is not mapped: a mapped file that somebody cuts short ends
/// the process.
class ArchiveFile {
 public:
  /// Throws IOException when the file cannot be opened.
  explicit ArchiveFile(const std::wstring& path);
  /// The bytes must outlive this.
  explicit ArchiveFile(std::span<const std::byte> bytes) : _bytes(bytes), _size(bytes.size()) {}
  ~ArchiveFile();
  ArchiveFile(const ArchiveFile&) = delete;
  ArchiveFile& operator=(const ArchiveFile&) = delete;

  /// In bytes, when it was opened.
  std::uint64_t getSize() const { return _size; }

  /// False unless all of the bytes are there.
  bool read(std::span<char> bytes, std::uint64_t position) const;

 private:
  static constexpr int NO_FILE = -1;

  bool readFile(std::span<char> bytes, std::uint64_t position) const;

  int _file = NO_FILE;
  std::span<const std::byte> _bytes;
  std::uint64_t _size = 0;
};

}  // namespace vemo
