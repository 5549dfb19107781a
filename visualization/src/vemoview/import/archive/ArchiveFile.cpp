#include "vemoview/import/archive/ArchiveFile.h"

#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vemo {

namespace {

// Some systems read no more than 2 GiB at once.
constexpr std::size_t MAX_READ_BYTES = std::size_t{1} << 30U;

}  // namespace

ArchiveFile::Descriptor::~Descriptor() {
  if (number >= 0) {
    ::close(number);
  }
}

ArchiveFile::ArchiveFile(const std::wstring& path)
    : _file(::open(toNativePath(path).c_str(), O_RDONLY | O_CLOEXEC)) {
  struct stat status {};
  if (!_file.isOpen() || ::fstat(_file.number, &status) != 0) {
    throw IOException(std::generic_category().message(errno));
  }
  _size = static_cast<std::uint64_t>(status.st_size);
}

bool ArchiveFile::read(std::span<char> bytes, std::uint64_t position) const {
  if (position > _size || bytes.size() > _size - position) {
    return false;
  }
  if (_file.isOpen()) {
    return readFile(bytes, position);
  }
  std::ranges::copy(_bytes.subspan(static_cast<std::size_t>(position), bytes.size()),
                    std::as_writable_bytes(bytes).begin());
  return true;
}

bool ArchiveFile::readFile(std::span<char> bytes, std::uint64_t position) const {
  while (!bytes.empty()) {
    const ::ssize_t count = ::pread(_file.number, bytes.data(), std::min(bytes.size(), MAX_READ_BYTES),
                                    static_cast<::off_t>(position));
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count <= 0) {
      return false;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(count));
    position += static_cast<std::uint64_t>(count);
  }
  return true;
}

}  // namespace vemo
