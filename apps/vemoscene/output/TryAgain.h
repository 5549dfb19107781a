#pragma once

namespace vemo {

/// Whether a call on a descriptor that failed (see errno) is to be made again. Another process may
/// have set a terminal or pipe that it shares with this one not to block: then this waits instead.
/// @param event for which poll waits: POLLIN, POLLOUT
bool tryAgain(int file, short event);

}  // namespace vemo
