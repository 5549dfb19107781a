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

/// The length of the UTF-8 sequence that starts with this byte; 0 when none does.
std::size_t sequenceLength(unsigned char first) {
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

/// Whether a decoded sequence has its shortest form, is not a surrogate, and is
/// not above U+10FFFF.
bool isCharacter(std::uint32_t value, std::size_t length) {
  constexpr std::uint32_t FIRST_OF_LENGTH[] = {0, 0, 0x80, 0x800, 0x10000};
  return value >= FIRST_OF_LENGTH[length] && value <= 0x10FFFF && !isHighSurrogate(value) &&
         !isLowSurrogate(value);
}

struct Decoded {
  std::uint32_t value;
  std::size_t length;
};

/// Decodes the first character of a non-empty text.
Decoded decodeFirst(std::string_view text) {
  const auto byte = [text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const Decoded stray{STRAY_BYTE + byte(0), 1};
  const std::size_t length = sequenceLength(byte(0));
  if (length == 0 || length > text.size()) {
    return stray;
  }
  if (length == 1) {
    return {byte(0), 1};
  }
  std::uint32_t value = byte(0) & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) {
      return stray;
    }
    value = value << 6 | (byte(i) & 0x3Fu);
  }
  return isCharacter(value, length) ? Decoded{value, length} : stray;
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
