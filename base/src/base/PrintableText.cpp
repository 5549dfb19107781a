#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>

#include <algorithm>

namespace vemo {

namespace {

bool steersTerminal(wchar_t character) {
  return character != L'\n' && (character < 0x20 || (character >= 0x7F && character < 0xA0) ||
                                (character >= 0xD800 && character < 0xE000));
}

}  // namespace

std::string toPrintable(std::string_view text) {
  std::wstring characters = toWidePath(text);
  std::ranges::replace_if(characters, steersTerminal, L'\xFFFD');
  return toNativePath(characters);
}

}  // namespace vemo
