#include "output/ResultStream.h"

#include "output/ExitCode.h"
#include "output/TryAgain.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace vemo {

namespace {

[[noreturn]] void fail(int error) {
  static bool isReported = false;
  // A reader that closes the pipe has seen enough: no message. For all files, one is enough.
  const bool isSilent = error == EPIPE || std::exchange(isReported, true);
  throw Failure(
      ExitCode::CANNOT_WRITE,
      isSilent ? std::string() : std::string("Cannot write to standard output: ") + std::strerror(error));
}

void writeResult(std::string_view bytes) {
  if (!writeAll(STDOUT_FILENO, bytes)) {
    fail(errno);
  }
}

}  // namespace

class ResultStream::Buffer : public std::streambuf {
 public:
  Buffer() { setp(_bytes.data(), _bytes.data() + _bytes.size()); }

 protected:
  int_type overflow(int_type character) override {
    sync();
    return traits_type::eq_int_type(character, traits_type::eof())
               ? traits_type::not_eof(character)
               : sputc(traits_type::to_char_type(character));
  }

  int sync() override {
    const auto size = static_cast<std::size_t>(pptr() - pbase());
    // Cleared before the write, so that a failed one is not repeated.
    setp(_bytes.data(), _bytes.data() + _bytes.size());
    writeResult({_bytes.data(), size});
    return 0;
  }

 private:
  std::array<char, 1 << 16> _bytes;
};

ResultStream::ResultStream() : std::ostream(nullptr), _buffer(std::make_unique<Buffer>()) {
  rdbuf(_buffer.get());
  exceptions(badbit);
}

ResultStream::~ResultStream() = default;

void ResultStream::finish() {
  flush();
}

}  // namespace vemo
