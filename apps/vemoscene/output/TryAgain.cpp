#include "output/TryAgain.h"

#include <cerrno>
#include <poll.h>

namespace vemo {

bool tryAgain(int file, short event) {
  if (errno != EAGAIN) {
    return errno == EINTR;
  }
  constexpr int FOR_EVER = -1;
  pollfd wait{file, event, 0};
  return ::poll(&wait, 1, FOR_EVER) >= 0 || errno == EINTR;
}

}  // namespace vemo
