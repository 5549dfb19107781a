#include "scenegraph/io/bytes/InputSource.h"

#include <vemo/scenegraph/io/FileError.h>

#include <cerrno>
#include <fmt/format.h>
#include <system_error>

namespace lum::io {

namespace {

/// Smaller gaps are read and discarded: cheaper than seeking, which empties the
/// stream's buffer.
constexpr std::uint64_t SMALL_GAP = 1 << 16;

}  // namespace

InputSource::InputSource(std::istream& in) : _in(in) {
  errno = 0;
  _start = _in.tellg();
  _in.seekg(0, std::ios::end);
  const std::istream::pos_type end = _in.tellg();
  _in.seekg(_start);
  if (errno != 0 && errno != ESPIPE) {
    requireGood();
  }
  if (!_in || _start == std::istream::pos_type(-1) || end < _start) {
    throw FileError(FileIoStatus::ReadError, "The stream is not seekable");
  }
  _size = static_cast<std::uint64_t>(end - _start);
}

void InputSource::seek(std::uint64_t position) {
  if (position == _position) {
    return;
  }
  if (position > _size) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("Position {} is beyond the end ({} bytes)", position, _size));
  }
  errno = 0;
  if (position > _position && position - _position <= SMALL_GAP) {
    _in.ignore(static_cast<std::streamsize>(position - _position));
  } else {
    _in.seekg(_start + static_cast<std::istream::off_type>(position));
  }
  requireGood();
  _position = position;
}

void InputSource::read(void* data, std::size_t size) {
  if (size > getLeft()) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("{} bytes needed at byte {}, {} left", size, _position, getLeft()));
  }
  errno = 0;
  _in.read(static_cast<char*>(data), static_cast<std::streamsize>(size));
  if (static_cast<std::size_t>(_in.gcount()) != size) {
    requireGood();
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("{} bytes cannot be read at byte {}", size, _position));
  }
  _position += size;
}

std::string InputSource::read(std::size_t size) {
  std::string bytes(size <= getLeft() ? size : 0, '\0');
  if (bytes.size() != size) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("{} bytes needed at byte {}, {} left", size, _position, getLeft()));
  }
  read(bytes.data(), size);
  return bytes;
}

/// After a call that set errno where it failed.
void InputSource::requireGood() const {
  const int error = errno;
  if (_in.bad() || (_in.fail() && error != 0)) {
    throw UnreadableFile(fmt::format("The file cannot be read at byte {}{}", _position,
                                     error != 0 ? ": " + std::generic_category().message(error) : ""),
                         error);
  }
}

}  // namespace lum::io
