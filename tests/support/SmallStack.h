#pragma once

#include <functional>

namespace vemo {

/// Runs something on a thread with a stack as small as some hosts give, 256 KiB.
/// What it throws is thrown here.
void runOnSmallStack(const std::function<void()>& work);

}  // namespace vemo
