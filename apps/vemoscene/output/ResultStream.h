#pragma once

#include <memory>
#include <ostream>
#include <streambuf>

namespace vemo {

/// Standard output, for results. Unlike std::cout, it throws Failure with
/// CANNOT_WRITE as soon as a write fails.
class ResultStream : public std::ostream {
 public:
  ResultStream();
  ~ResultStream() override;

  /// Writes what is still buffered. Must be called when the result is complete.
  void finish();

 private:
  class Buffer;
  std::unique_ptr<Buffer> _buffer;
};

}  // namespace vemo
