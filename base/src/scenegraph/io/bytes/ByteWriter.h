#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace lum::io {

// Files are little-endian, and so is every machine that this runs on: values
// and arrays go out as they lie in memory.
static_assert(std::endian::native == std::endian::little);

/// Puts bytes together. Whole numbers are written in base 128, lowest digits
/// first, the top bit of a byte saying that more follow (LEB128).
class ByteWriter {
 public:
  void number(std::uint64_t value) {
    for (; value >= 0x80; value >>= 7) {
      _bytes.push_back(static_cast<char>(value | 0x80));
    }
    _bytes.push_back(static_cast<char>(value));
  }

  /// Small numbers of either sign are short: 0, -1, 1, -2, ... are 0, 1, 2, 3.
  void signedNumber(std::int64_t value) {
    number(static_cast<std::uint64_t>(value) << 1 ^ static_cast<std::uint64_t>(value >> 63));
  }

  /// A value as it lies in memory.
  template <class T>
  void raw(const T& value) {
    static_assert(std::is_arithmetic_v<T>);
    bytes(&value, sizeof value);
  }

  void bytes(const void* data, std::size_t size) { _bytes.append(static_cast<const char*>(data), size); }

  /// Its length, then its bytes.
  void text(std::string_view text) {
    number(text.size());
    _bytes.append(text);
  }

  void fill(std::size_t count) { _bytes.append(count, '\0'); }
  void truncate(std::size_t size) { _bytes.resize(size); }
  void clear() { _bytes.clear(); }

  std::size_t size() const { return _bytes.size(); }
  char& operator[](std::size_t position) { return _bytes[position]; }
  std::string_view view(std::size_t from = 0) const { return std::string_view(_bytes).substr(from); }

 private:
  std::string _bytes;
};

}  // namespace lum::io
