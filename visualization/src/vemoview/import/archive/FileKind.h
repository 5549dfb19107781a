#pragma once

#include <string>
#include <sys/stat.h>

namespace vemo {

/// What a path names that is not a regular file, as "a folder".
inline std::string describeKind(const struct stat& status) {
  switch (status.st_mode & S_IFMT) {
    case S_IFDIR:
      return "a folder";
    case S_IFIFO:
      return "a pipe";
    case S_IFSOCK:
      return "a socket";
    default:
      return "a device";
  }
}

}  // namespace vemo
