#pragma once

#include <vemo/base/Export.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vemo {

/// A character and the number of bytes that it has in UTF-8.
struct Utf8Character {
  char32_t value;
  std::size_t length;
};

/// The first character of a non-empty text; nothing if the text does not begin with
/// valid UTF-8: overlong forms, surrogates, and numbers above U+10FFFF are not valid.
VEMO_BASE_EXPORT std::optional<Utf8Character> firstOfUtf8(std::string_view text);

/// Whether a byte is the second or a later one of a character.
constexpr bool isContinuationByte(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Whether a character has no form of its own, although fonts draw it: hyphens where a line could
/// be broken, and marks of joining and direction.
VEMO_BASE_EXPORT bool isInvisible(char32_t character);

/// Whether nothing of a text is seen: it has no characters but blanks, line breaks, control
/// characters and invisible ones.
VEMO_BASE_EXPORT bool isBlank(std::string_view text);

/// The first bytes of a text in UTF-8, without an incomplete last character.
VEMO_BASE_EXPORT std::string beginOf(std::string_view text, std::size_t mostBytes);

/// A name for messages: in an untrusted file it may be as long as the file.
VEMO_BASE_EXPORT std::string shortName(std::string_view name);

}  // namespace vemo
