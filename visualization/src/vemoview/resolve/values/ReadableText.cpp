#include "vemoview/resolve/values/ReadableText.h"

#include "base/Utf8.h"
#include <vemo/scenegraph/Findings.h>

namespace vemo {

namespace {

void reportChange(const std::string& owner, const char* change) {
  reportFinding(FindingCode::TEXT_CHANGED, owner + change);
}

}  // namespace

std::string readableText(std::string_view text, std::size_t mostBytes, const std::string& owner) {
  std::string result;
  bool isUtf8 = true;
  while (!text.empty()) {
    const auto decoded = firstOfUtf8(text);
    const bool isControl = decoded && decoded->value < U' ' && text[0] != '\n';
    const std::string_view character = !decoded ? "?" : isControl ? "" : text.substr(0, decoded->length);
    if (result.size() + character.size() > mostBytes) {
      reportChange(owner, " is too long and cut off");
      break;
    }
    isUtf8 = isUtf8 && decoded;
    result += text[0] == '\t' ? " " : character;
    text.remove_prefix(decoded ? decoded->length : 1);
  }
  if (!isUtf8) {
    reportChange(owner, " is not valid UTF-8: question marks replace invalid bytes");
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
