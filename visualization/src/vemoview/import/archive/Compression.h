#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

namespace vemo {

/// Gives the next block of an entry's compressed bytes, valid until the next
/// call; an empty one after the last. Nothing when they cannot be read.
using CompressedBlocks = std::function<std::optional<std::span<const char>>()>;

/// How the content of a zip entry is compressed. A new method is a class and a
/// row in Compression.cpp.
class CompressionMethod {
 public:
  CompressionMethod(const CompressionMethod&) = delete;
  CompressionMethod& operator=(const CompressionMethod&) = delete;

  /// Fills the content from the front and returns how much of it the entry
  /// holds: less than all when the entry ends early. What would follow the
  /// content is ignored. Nothing when the compressed bytes are invalid.
  virtual std::optional<std::size_t> decompress(const CompressedBlocks& blocks,
                                                std::span<char> content) const = 0;

 protected:
  CompressionMethod() = default;
  ~CompressionMethod() = default;
};

/// By its number in zip archives; null for a method that is not supported.
const CompressionMethod* findCompressionMethod(std::uint64_t number);

}  // namespace vemo
