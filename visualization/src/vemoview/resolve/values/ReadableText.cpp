#include "vemoview/resolve/values/ReadableText.h"

#include <vemo/scenegraph/Findings.h>

#include <algorithm>

namespace vemo {

namespace {

/// The number of bytes of the first character of a text; 0 if it is not UTF-8.
std::size_t characterLength(std::string_view text) {
  const auto byte = [=](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) {
    return 1;
  }
  const std::size_t length = first >= 0xC2 && first < 0xE0   ? 2
                             : first >= 0xE0 && first < 0xF0 ? 3
                             : first >= 0xF0 && first < 0xF5 ? 4
                                                             : 0;
  if (length == 0 || text.size() < length) {
    return 0;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) {
      return 0;
    }
  }
  // Overlong forms, surrogates, and numbers beyond the last character.
  const bool isForbidden = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) >= 0xA0) ||
                           (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) >= 0x90);
  return isForbidden ? 0 : length;
}

void reportChange(const std::string& owner, const char* change) {
  reportFinding(FindingCode::TEXT_CHANGED, owner + change);
}

}  // namespace

std::string readableText(std::string_view text, std::size_t mostBytes, const std::string& owner) {
  std::string result;
  bool isUtf8 = true;
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    const bool isControl = length == 1 && static_cast<unsigned char>(text[0]) < ' ' && text[0] != '\n';
    const std::string_view character = length == 0 ? "?" : isControl ? "" : text.substr(0, length);
    if (result.size() + character.size() > mostBytes) {
      reportChange(owner, " is too long and cut off");
      break;
    }
    isUtf8 = isUtf8 && length > 0;
    result += text[0] == '\t' ? " " : character;
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  if (!isUtf8) {
    reportChange(owner, " is not UTF-8: question marks replace what cannot be read");
  }
  return result;
}

std::vector<char32_t> charactersOf(std::string_view text) {
  std::vector<char32_t> result;
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    const auto first = static_cast<unsigned char>(text[0]);
    // The first of several bytes has a one for each of them, and a zero.
    char32_t character = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
      character = (character << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    result.push_back(character);
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}

}  // namespace vemo
