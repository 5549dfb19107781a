#include "base/AccessList.h"

#include <cerrno>
#include <cstddef>
#include <sys/types.h>
#include <sys/xattr.h>

namespace vemo::OS {

namespace {

constexpr const char* ATTRIBUTE = "system.posix_acl_access";

}  // namespace

int AccessList::readFrom(const std::filesystem::path& file) {
  _bytes.clear();
  ::ssize_t size = ::lgetxattr(file.c_str(), ATTRIBUTE, nullptr, 0);
  if (size > 0) {
    _bytes.resize(static_cast<std::size_t>(size));
    // Fails if it has grown meanwhile.
    size = ::lgetxattr(file.c_str(), ATTRIBUTE, _bytes.data(), _bytes.size());
  }
  const int error = size < 0 ? errno : 0;
  _bytes.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
  return error == ENODATA || error == ENOTSUP ? 0 : error;
}

int AccessList::writeTo(int file) const {
  if (!_bytes.empty()) {
    return ::fsetxattr(file, ATTRIBUTE, _bytes.data(), _bytes.size(), 0) == 0 ? 0 : errno;
  }
  // Some file systems refuse to remove what is not there.
  const bool hasList = ::fgetxattr(file, ATTRIBUTE, nullptr, 0) > 0;
  return hasList && ::fremovexattr(file, ATTRIBUTE) != 0 ? errno : 0;
}

}  // namespace vemo::OS
