#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vemo {

/// Longer texts would be illegible.
inline constexpr std::size_t MAX_TEXT_BYTES = 2000;

/// A text that can be drawn: valid UTF-8 of at most `mostBytes` bytes, without invisible
/// characters other than blanks and line breaks. Invalid bytes become question marks; a finding
/// about the text's owner reports that, and a text that is cut off.
std::string readableText(std::string_view text, std::size_t mostBytes, const std::string& owner);

/// The characters of a readable text.
std::vector<char32_t> charactersOf(std::string_view text);

}  // namespace vemo
