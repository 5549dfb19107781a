#include "vemoview/resolve/values/ReadableText.h"

#include "base/Utf8.h"
#include <vemo/scenegraph/Findings.h>

#include <array>

namespace vemo {

namespace {

void reportChange(const std::string& owner, const char* change) {
  reportFinding(FindingCode::TEXT_CHANGED, owner + change);
}

bool isLineBreak(char32_t character) {
  return character == U'\n' || character == U'\r' || character == 0x2028 || character == 0x2029;
}

/// Empty for what Windows-1252 does not have, either.
std::string_view inWindows1252(char32_t lateControl) {
  static constexpr std::array<std::string_view, 32> CHARACTERS = {
      "€", "",  "‚", "ƒ", "„", "…", "†", "‡", "ˆ", "‰", "Š", "‹", "Œ", "", "Ž", "",
      "",  "‘", "’", "“", "”", "•", "–", "—", "˜", "™", "š", "›", "œ", "", "ž", "Ÿ"};
  return CHARACTERS[lateControl - 0x80];
}

/// What no text is drawn for; tabs and ends of lines have a form of their own.
bool isUndrawnControl(char32_t character) {
  return (character < U' ' && character != U'\t' && !isLineBreak(character)) || character == 0x7F;
}

std::string_view drawnForm(char32_t character, std::string_view written) {
  if (isLateControl(character)) {
    const std::string_view meant = inWindows1252(character);
    return meant.empty() ? written : meant;
  }
  return character == U'\t'                                      ? " "
         : isLineBreak(character)                                ? "\n"
         : isUndrawnControl(character) || isInvisible(character) ? ""
                                                                 : written;
}

/// Embeddings, overrides and isolates from right to left.
bool isReversal(char32_t character) {
  return character == 0x202B || character == 0x202E || character == 0x2067;
}

}  // namespace

std::string readableText(std::string_view text, std::size_t mostBytes, const std::string& owner) {
  std::string result;
  bool isUtf8 = true;
  bool isReversed = false;
  bool isWindows1252 = false;
  bool hasUndrawn = false;
  while (!text.empty()) {
    if (text.starts_with("\r\n")) {
      text.remove_prefix(1);
    }
    const auto decoded = firstOfUtf8(text);
    const std::string_view written = text.substr(0, decoded ? decoded->length : 1);
    const std::string_view character = decoded ? drawnForm(decoded->value, written) : "?";
    if (result.size() + character.size() > mostBytes) {
      reportChange(owner, " is too long and cut off");
      break;
    }
    isUtf8 = isUtf8 && decoded;
    isReversed = isReversed || (decoded && isReversal(decoded->value));
    isWindows1252 = isWindows1252 || (decoded && isLateControl(decoded->value) && character != written);
    hasUndrawn = hasUndrawn || (decoded && isUndrawnControl(decoded->value));
    result += character;
    text.remove_prefix(written.size());
  }
  if (!isUtf8) {
    reportChange(owner, " is not valid UTF-8: question marks replace invalid bytes");
  }
  if (isWindows1252) {
    reportChange(owner, " has control characters: characters of Windows-1252 replace them");
  }
  if (hasUndrawn) {
    reportChange(owner, " has control characters that are not drawn");
  }
  if (isReversed) {
    reportFinding(FindingCode::TEXT_NOT_SHAPED,
                  owner + " is drawn from left to right, although its marks say otherwise");
  }
  return result;
}

std::vector<char32_t> charactersOf(std::string_view text) {
  std::vector<char32_t> result;
  while (!text.empty()) {
    const auto character = firstOfUtf8(text).value();
    result.push_back(character.value);
    text.remove_prefix(character.length);
  }
  return result;
}

}  // namespace vemo
