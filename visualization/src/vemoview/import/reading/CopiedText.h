#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vemo {

/// Bytes of a text that each item in an assembly gets a copy of. With longer ones
/// a few kilobytes of description would ask for gigabytes.
inline constexpr std::size_t MAX_COPIED_TEXT = 1000;

/// The first bytes of a text in UTF-8, up to the end of a character.
inline std::string beginOf(std::string_view text, std::size_t mostBytes) {
  if (text.size() > mostBytes) {
    while (mostBytes > 0 && (static_cast<unsigned char>(text[mostBytes]) & 0xC0U) == 0x80U) {
      --mostBytes;
    }
  }
  return std::string(text.substr(0, mostBytes));
}

}  // namespace vemo
