#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vemo {

/// Longer texts would be illegible.
inline constexpr std::size_t MAX_TEXT_BYTES = 2000;

/// The control characters after those of ASCII, which no font has. In texts they are usually
/// letters and signs of Windows-1252, which was taken for Latin-1.
inline bool isLateControl(char32_t character) {
  return character >= 0x80 && character <= 0x9F;
}

/// A text that can be drawn: valid UTF-8 of at most `mostBytes` bytes, without invisible
/// characters other than blanks and line breaks. Invalid bytes become question marks, and late
/// controls what they are in Windows-1252; findings about the text's owner report that, and a
/// text that is cut off.
std::string readableText(std::string_view text, std::size_t mostBytes, const std::string& owner);

/// The characters of a readable text.
std::vector<char32_t> charactersOf(std::string_view text);

}  // namespace vemo
