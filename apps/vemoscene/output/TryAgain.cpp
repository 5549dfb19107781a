#include "output/TryAgain.h"

#include <cerrno>
#include <cstddef>
#include <poll.h>
#include <sys/types.h>
#include <unistd.h>

namespace vemo {

bool tryAgain(int file, short event) {
  if (errno != EAGAIN) {
    return errno == EINTR;
  }
  constexpr int FOR_EVER = -1;
  pollfd wait{file, event, 0};
  return ::poll(&wait, 1, FOR_EVER) >= 0 || errno == EINTR;
}

bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (!tryAgain(file, POLLOUT)) {
      return false;
    }
  }
  return true;
}

}  // namespace vemo
