#pragma once

#include "vemoview/import/archive/ArchiveFile.h"
#include "vemoview/import/archive/ContentPass.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace vemo {

/// The compressed bytes of an entry, where they lie in the archive.
class CompressedBytes {
 public:
  CompressedBytes(const ArchiveFile& file, std::uint64_t position, std::uint64_t size)
      : _file(file), _position(position), _size(size) {}

  std::uint64_t size() const { return _size; }

  /// Bytes from an offset on, within the size. False when the file lacks them.
  bool read(std::span<char> bytes, std::uint64_t offset) const {
    return _file.read(bytes, _position + offset);
  }

 private:
  const ArchiveFile& _file;
  std::uint64_t _position;
  std::uint64_t _size;
};

/// How the content of a zip entry is compressed. A new method is a class and a
/// row in Compression.cpp.
class CompressionMethod {
 public:
  CompressionMethod(const CompressionMethod&) = delete;
  CompressionMethod& operator=(const CompressionMethod&) = delete;

  /// Fills the content from the front and returns how much of it the entry
  /// holds: less than all when the entry ends early. What would follow the
  /// content is ignored. Nothing when the compressed bytes are invalid.
  /// @param pass may be advanced meanwhile; the caller finishes it
  virtual std::optional<std::size_t> decompress(const CompressedBytes& compressed, std::span<char> content,
                                                ContentPass& pass) const = 0;

 protected:
  CompressionMethod() = default;
  ~CompressionMethod() = default;
};

/// By its number in zip archives; null for a method that is not supported.
const CompressionMethod* findCompressionMethod(std::uint64_t number);

}  // namespace vemo
