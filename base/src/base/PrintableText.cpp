#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>

#include <algorithm>

namespace vemo {

namespace {

bool isUnprintable(wchar_t character) {
  return character != L'\n' &&
         (character < 0x20 || (character >= 0x7F && character < 0xA0) ||
          (character >= 0xD800 && character < 0xE000) ||
          // They change the direction of what follows, or end a line.
          character == 0x061C || character == 0x200E || character == 0x200F ||
          (character >= 0x2028 && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069));
}

}  // namespace

std::string toPrintable(std::string_view text) {
  std::wstring characters = toWidePath(text);
  std::ranges::replace_if(characters, isUnprintable, L'\xFFFD');
  return toNativePath(characters);
}

std::string toPrintableLine(std::string_view text) {
  std::string line = toPrintable(text);
  std::ranges::replace(line, '\n', ' ');
  return line;
}

std::string replaceBreaks(std::string_view message, char replacement) {
  constexpr std::string_view BREAK = "<br>";
  std::string result;
  for (std::size_t at = 0; (at = message.find(BREAK)) != std::string_view::npos;) {
    result.append(message.substr(0, at)).push_back(replacement);
    message.remove_prefix(at + BREAK.size());
  }
  return result.append(message);
}

}  // namespace vemo
