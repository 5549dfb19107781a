#include "scenegraph/io/bytes/ByteReader.h"

#include <vemo/scenegraph/io/FileError.h>

#include <fmt/format.h>

namespace lum::io {

std::uint64_t ByteReader::number(const char* what) {
  std::uint64_t value = 0;
  for (unsigned shift = 0; shift < 64; shift += 7) {
    const auto byte = static_cast<unsigned char>(take(1, what)[0]);
    const std::uint64_t digits = byte & 0x7FU;
    if (shift == 63 && digits > 1) {
      break;
    }
    value |= digits << shift;
    if (byte < 0x80) {
      return value;
    }
  }
  throw FileError(FileIoStatus::ReadError, fmt::format("{}: a number is too large", what));
}

std::int64_t ByteReader::signedNumber(const char* what) {
  const std::uint64_t value = number(what);
  return static_cast<std::int64_t>(value >> 1 ^ (~(value & 1) + 1));
}

std::size_t ByteReader::index(const char* what, std::size_t limit) {
  const std::uint64_t value = number(what);
  if (value >= limit) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("{}: index {} out of range ({})", what, value, limit));
  }
  return value;
}

std::size_t ByteReader::count(const char* what, std::size_t leastBytes) {
  const std::uint64_t value = number(what);
  if (value > left() / leastBytes) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("{}: count {} is too large for the remaining {} bytes", what, value, left()));
  }
  return value;
}

std::string_view ByteReader::take(std::uint64_t size, const char* what) {
  if (size > _left.size()) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("{}: {} bytes needed, {} left", what, size, _left.size()));
  }
  const std::string_view taken = _left.substr(0, size);
  _left.remove_prefix(size);
  return taken;
}

}  // namespace lum::io
