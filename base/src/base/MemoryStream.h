#pragma once

#include <cstddef>
#include <istream>
#include <span>
#include <streambuf>

namespace vemo {

/// A seekable input stream over bytes that something else holds.
class MemoryStream : public std::istream {
 public:
  explicit MemoryStream(std::span<const std::byte> bytes) : std::istream(nullptr), _buffer(bytes) {
    rdbuf(&_buffer);
  }

 private:
  class Buffer : public std::streambuf {
   public:
    // The buffer's interface is for writers, too.
    explicit Buffer(std::span<const std::byte> bytes) {
      char* const begin = const_cast<char*>(reinterpret_cast<const char*>(bytes.data()));
      setg(begin, begin, begin + bytes.size());
    }

   private:
    pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override {
      off_type start = 0;
      if (from == std::ios_base::cur) {
        start = gptr() - eback();
      } else if (from == std::ios_base::end) {
        start = egptr() - eback();
      }
      return seekpos(start + offset, which);
    }

    pos_type seekpos(pos_type position, std::ios_base::openmode which) override {
      const off_type target = position;
      if ((which & std::ios_base::in) == 0 || target < 0 || target > egptr() - eback()) {
        return off_type{-1};
      }
      setg(eback(), eback() + target, egptr());
      return position;
    }
  };

  Buffer _buffer;
};

}  // namespace vemo
