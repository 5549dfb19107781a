#pragma once

#include "base/Utf8.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vemo {

/// Bytes of a text of which each item in an assembly gets a copy. With longer texts
/// a few kilobytes of description could need gigabytes.
inline constexpr std::size_t MAX_COPIED_TEXT = 1000;

/// The first bytes of a text in UTF-8, without an incomplete last character.
inline std::string beginOf(std::string_view text, std::size_t mostBytes) {
  if (text.size() > mostBytes) {
    while (mostBytes > 0 && isContinuationByte(text[mostBytes])) {
      --mostBytes;
    }
  }
  return std::string(text.substr(0, mostBytes));
}

}  // namespace vemo
