#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace lum::io {

/// Reads the bytes of a file's tables, and never beyond them. Throws FileError
/// (ReadError), naming what was to be read, for anything that does not fit.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : _left(bytes) {}

  std::size_t left() const { return _left.size(); }

  std::uint64_t number(const char* what);
  std::int64_t signedNumber(const char* what);

  /// A number below a limit.
  std::size_t index(const char* what, std::size_t limit);

  /// The number of things that follow, each at least so many bytes long: more
  /// than fit into the remaining bytes are refused, so that memory for that
  /// many may be reserved.
  std::size_t count(const char* what, std::size_t leastBytes);

  template <class T>
  T raw(const char* what) {
    static_assert(std::is_arithmetic_v<T> && !std::is_same_v<T, bool>);
    T value;
    std::memcpy(&value, take(sizeof value, what).data(), sizeof value);
    return value;
  }

  std::string_view take(std::uint64_t size, const char* what);

  /// A text after its length.
  std::string_view text(const char* what) { return take(number(what), what); }

 private:
  std::string_view _left;
};

}  // namespace lum::io
