#pragma once

#include "base/Utf8.h"

#include <cstddef>

namespace vemo {

/// Bytes of a text of which each item in an assembly gets a copy. With longer texts
/// a few kilobytes of description could need gigabytes.
inline constexpr std::size_t MAX_COPIED_TEXT = 1000;

}  // namespace vemo
