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

  /// In bytes, when it was opened.
  std::uint64_t getSize() const { return _size; }

  /// False unless all of the bytes are there.
  bool read(std::span<char> bytes, std::uint64_t position) const;

 private:
  /// Closes the file also when a constructor throws.
  struct Descriptor {
    Descriptor() = default;
    explicit Descriptor(int file) : number(file) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();
    bool isOpen() const { return number >= 0; }

    int number = -1;
  };

  bool readFile(std::span<char> bytes, std::uint64_t position) const;

  Descriptor _file;
  std::span<const std::byte> _bytes;
  std::uint64_t _size = 0;
};

}  // namespace vemo
