#include "base/ReadableFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vemo::OS {

namespace {

// Some systems read no more than 2 GiB at once.
constexpr std::size_t MAX_READ_BYTES = std::size_t{1} << 30U;

[[noreturn]] void fail(int error) {
  throw std::system_error(error, std::generic_category());
}

}  // namespace

ReadableFile::ReadableFile(const std::filesystem::path& path)
    : _file(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  struct stat status {};
  if (_file < 0) {
    fail(errno);
  }
  if (::fstat(_file, &status) != 0) {
    const int error = errno;
    ::close(_file);
    fail(error);
  }
  _size = static_cast<std::uint64_t>(status.st_size);
}

ReadableFile::~ReadableFile() {
  ::close(_file);
}

std::size_t ReadableFile::read(std::span<char> bytes, std::uint64_t position) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const auto left = bytes.subspan(done);
    const ::ssize_t count = ::pread(_file, left.data(), std::min(left.size(), MAX_READ_BYTES),
                                    static_cast<::off_t>(position + done));
    if (count == 0) {
      break;
    }
    if (count > 0) {
      done += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      fail(errno);
    }
  }
  return done;
}

std::string ReadableFile::readStart(std::size_t most) const {
  std::string start(most, '\0');
  start.resize(read(start, 0));
  return start;
}

}  // namespace vemo::OS
