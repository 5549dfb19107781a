#pragma once

#include <string_view>

namespace vemo {

/// Whether a call on a descriptor that failed (see errno) is to be made again. Another process may
/// have set a terminal or pipe that it shares with this one not to block: then this waits instead.
/// @param event for which poll waits: POLLIN, POLLOUT
bool tryAgain(int file, short event);

/// Writes all of it. False, with errno, if that fails.
bool writeAll(int file, std::string_view bytes);

}  // namespace vemo
