#pragma once

#include <cstddef>
#include <memory>
#include <ostream>
#include <streambuf>

namespace vemo {

/// Standard output, for results. Unlike std::cout it throws, Failure with
/// CANNOT_WRITE, as soon as something cannot be written.
class ResultStream : public std::ostream {
 public:
  ResultStream();
  ~ResultStream() override;

  /// Writes what is still held back; results are complete only after that.
  void finish();

 private:
  class Buffer;
  std::unique_ptr<Buffer> _buffer;
};

}  // namespace vemo
