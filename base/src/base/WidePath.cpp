#include "base/Utf8.h"
#include <vemo/base/WidePath.h>

#include <cstddef>
#include <cstdint>

namespace vemo {

namespace {

constexpr std::uint32_t REPLACEMENT = 0xFFFD;
/// Added to an invalid byte, 0x80 or above.
constexpr std::uint32_t STRAY_BYTE = 0xDC00;

bool isHighSurrogate(std::uint32_t character) {
  return character >= 0xD800 && character < 0xDC00;
}
bool isLowSurrogate(std::uint32_t character) {
  return character >= 0xDC00 && character < 0xE000;
}
bool isStrayByte(std::uint32_t character) {
  return character >= 0xDC80 && character <= 0xDCFF;
}

/// wchar_t is signed here; negative values become large code points.
std::uint32_t valueOf(wchar_t character) {
  return static_cast<std::uint32_t>(character);
}

struct Decoded {
  std::uint32_t value;
  std::size_t length;
};

/// Decodes the first character of a non-empty text.
Decoded decodeFirst(std::string_view text) {
  if (const auto character = firstOfUtf8(text)) {
    return {character->value, character->length};
  }
  return {STRAY_BYTE + static_cast<unsigned char>(text[0]), 1};
}

/// Decodes the first character of a non-empty text; a surrogate pair is one
/// character.
Decoded joinFirst(std::wstring_view text) {
  const std::uint32_t first = valueOf(text[0]);
  if (isHighSurrogate(first) && text.size() > 1 && isLowSurrogate(valueOf(text[1]))) {
    return {0x10000 + ((first - 0xD800) << 10) + (valueOf(text[1]) - 0xDC00), 2};
  }
  const bool none =
      first > 0x10FFFF || isHighSurrogate(first) || (isLowSurrogate(first) && !isStrayByte(first));
  return {none ? REPLACEMENT : first, 1};
}

void appendEncoded(std::string& out, std::uint32_t value) {
  const auto append = [&out](std::uint32_t byte) { out.push_back(static_cast<char>(byte)); };
  const auto continuation = [&](unsigned shift) { append(0x80 | (value >> shift & 0x3F)); };
  if (isStrayByte(value)) {
    append(value - STRAY_BYTE);
  } else if (value < 0x80) {
    append(value);
  } else if (value < 0x800) {
    append(0xC0 | value >> 6);
    continuation(0);
  } else if (value < 0x10000) {
    append(0xE0 | value >> 12);
    continuation(6);
    continuation(0);
  } else {
    append(0xF0 | value >> 18);
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

}  // namespace

std::wstring toWidePath(std::string_view native) {
  std::wstring wide;
  wide.reserve(native.size());
  while (!native.empty()) {
    const Decoded character = decodeFirst(native);
    wide.push_back(static_cast<wchar_t>(character.value));
    native.remove_prefix(character.length);
  }
  return wide;
}

std::string toNativePath(std::wstring_view wide) {
  std::string native;
  native.reserve(wide.size());
  while (!wide.empty()) {
    const Decoded character = joinFirst(wide);
    appendEncoded(native, character.value);
    wide.remove_prefix(character.length);
  }
  return native;
}

int wideStat(const wchar_t* path, struct stat* status) {
  return stat(toNativePath(path).c_str(), status);
}

std::FILE* wideOpen(const wchar_t* path, const char* mode) {
  return std::fopen(toNativePath(path).c_str(), mode);
}

}  // namespace vemo
