#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

namespace lum::io {

/// Limits the memory that texts, keys, lists of arrays and empty arrays take. A file has each
/// text and array once, and a byte or two wherever it is used; none at all where it is a
/// default of the file. Of an empty array it has a dozen bytes.
/// Nodes are limited, too, if that is asked for.
class ContentBudget {
 public:
  /// No scene needs as much.
  static constexpr std::uint64_t BYTES_PER_BYTE = 10;
  static constexpr std::uint64_t BYTES_OF_SMALL_FILE = 32U << 20U;

  /// What an array without tuples takes as VTK keeps it: itself, and a tuple that it converts values in.
  static constexpr std::uint64_t bytesOfEmptyArray(std::uint64_t components) {
    constexpr std::uint64_t BYTES = 512;
    return BYTES + sizeof(double) * components;
  }

  /// Takes into account that so many bytes were read.
  void allow(std::uint64_t bytes) { _allowed += BYTES_PER_BYTE * bytes; }

  /// These throw FileError (ReadError) when it is too much.
  void useText(std::string_view text);
  void use(std::uint64_t bytes);
  void useNodes(std::uint64_t count);

  /// Of all calls of useNodes; none at first.
  void setNodeLimit(std::uint64_t count) { _nodeLimit = count; }

  std::uint64_t getUsed() const { return _used; }

 private:
  std::uint64_t _allowed = BYTES_OF_SMALL_FILE;
  std::uint64_t _used = 0;
  std::uint64_t _nodeLimit = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t _nodes = 0;
};

}  // namespace lum::io
