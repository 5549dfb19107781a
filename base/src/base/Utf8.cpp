#include "base/Utf8.h"

#include <algorithm>
#include <utility>

namespace vemo {

namespace {

/// The length of the character that starts with this byte; 0 if none does.
std::size_t lengthFrom(unsigned char first) {
  if (first < 0x80) {
    return 1;
  }
  if (first >= 0xC2 && first < 0xE0) {
    return 2;
  }
  if (first >= 0xE0 && first < 0xF0) {
    return 3;
  }
  return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

using Range = std::pair<char32_t, char32_t>;

template <std::size_t COUNT>
bool isWithin(const Range (&ranges)[COUNT], char32_t character) {
  return std::ranges::any_of(
      ranges, [=](const Range& range) { return range.first <= character && character <= range.second; });
}

/// Whether a decoded sequence has its shortest form, is not a surrogate, and is
/// not above U+10FFFF.
bool isValid(char32_t value, std::size_t length) {
  constexpr char32_t FIRST_OF_LENGTH[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = value >= 0xD800 && value < 0xE000;
  return value >= FIRST_OF_LENGTH[length] && value <= 0x10FFFF && !isSurrogate;
}

}  // namespace

std::optional<Utf8Character> firstOfUtf8(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  const std::size_t length = lengthFrom(first);
  if (length == 0 || length > text.size()) {
    return std::nullopt;
  }
  // The first of several bytes starts with as many ones as there are bytes, and a zero.
  char32_t value = length == 1 ? first : first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!isContinuationByte(text[i])) {
      return std::nullopt;
    }
    value = value << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  return isValid(value, length) ? std::optional<Utf8Character>({value, length}) : std::nullopt;
}

bool isInvisible(char32_t character) {
  constexpr Range RANGES[] = {
      {0xAD, 0xAD}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2069}, {0xFEFF, 0xFEFF}};
  return isWithin(RANGES, character);
}

bool isBlank(std::string_view text) {
  constexpr Range BLANKS[] = {{0x00, 0x20},     {0x7F, 0x7F},     {0xA0, 0xA0},
                              {0x1680, 0x1680}, {0x2000, 0x200A}, {0x2028, 0x2029},
                              {0x202F, 0x202F}, {0x205F, 0x205F}, {0x3000, 0x3000}};
  while (!text.empty()) {
    const auto character = firstOfUtf8(text);
    if (!character || !(isWithin(BLANKS, character->value) || isInvisible(character->value))) {
      return false;
    }
    text.remove_prefix(character->length);
  }
  return true;
}

std::string beginOf(std::string_view text, std::size_t mostBytes) {
  if (text.size() > mostBytes) {
    while (mostBytes > 0 && isContinuationByte(text[mostBytes])) {
      --mostBytes;
    }
  }
  return std::string(text.substr(0, mostBytes));
}

std::string shortName(std::string_view name) {
  constexpr std::size_t MAX_BYTES = 64;
  return name.size() <= MAX_BYTES ? std::string(name) : beginOf(name, MAX_BYTES) + "...";
}

}  // namespace vemo
