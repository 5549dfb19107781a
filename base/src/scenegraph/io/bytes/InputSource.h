#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>

namespace lum::io {

/// The bytes of a stream from its position to its end, which is known from the
/// start, so no read allocates more than the stream holds. All failures are
/// FileError (ReadError): UnreadableFile where the stream, and not its content, is at fault.
class InputSource {
 public:
  /// The stream must be seekable.
  explicit InputSource(std::istream& in);

  std::uint64_t getSize() const { return _size; }
  std::uint64_t getPosition() const { return _position; }
  std::uint64_t getLeft() const { return _size - _position; }

  /// Goes to a position counted from the first byte.
  void seek(std::uint64_t position);

  void read(void* data, std::size_t size);
  std::string read(std::size_t size);

 private:
  void requireGood() const;

  std::istream& _in;
  std::istream::pos_type _start;
  std::uint64_t _size = 0;
  std::uint64_t _position = 0;
};

}  // namespace lum::io
