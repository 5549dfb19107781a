#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vemo {

/// Longer texts cannot be read.
inline constexpr std::size_t MAX_TEXT_BYTES = 2000;

/// A text that can be drawn: UTF-8, line breaks its only control characters, of so
/// many bytes at most. Bytes that are not UTF-8 become question marks; a finding
/// names the owner of the text where something is not as it was.
std::string readableText(std::string_view text, std::size_t mostBytes, const std::string& owner);

/// The characters of a readable text.
std::vector<char32_t> charactersOf(std::string_view text);

}  // namespace vemo
