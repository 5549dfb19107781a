#include "vemoview/import/xml/QxString.h"

#include <vemo/import/Exception.h>

#include <charconv>
#include <cstdint>
#include <locale>
#include <sstream>
#include <string_view>
#include <system_error>

namespace vemo {

namespace {

/// 36 for a character that is a digit in no radix. Without the C library's
/// functions, which ask the locale.
std::uint32_t digitValue(char character) {
  if (character >= '0' && character <= '9') {
    return static_cast<std::uint32_t>(character - '0');
  }
  if (character >= 'a' && character <= 'z') {
    return static_cast<std::uint32_t>(character - 'a' + 10);
  }
  if (character >= 'A' && character <= 'Z') {
    return static_cast<std::uint32_t>(character - 'A' + 10);
  }
  return 36;
}

double extractDouble(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  double value = 0.0;
  stream >> value;
  return value;
}

}  // namespace

int QxString::parseInt(const std::string& text, int radix) {
  if (radix < 2 || radix > 36) {
    throw Exception("QxString::parseInt:  radix out of range");
  }
  std::string_view digits = text;
  if (digits.starts_with('-')) {
    digits.remove_prefix(1);
  }
  const auto base = static_cast<std::uint32_t>(radix);
  std::uint32_t value = 0;
  for (const char character : digits) {
    const std::uint32_t digit = digitValue(character);
    if (digit >= base) {
      throw NumberFormatException(text);
    }
    value = value * base + digit;
  }
  return static_cast<int>(value);
}

double QxString::parseDouble(const std::string& text) {
  // Nearly every text is a plain number from end to end, which from_chars reads
  // to the same double many times faster. The stream handles everything else.
  const std::string_view unsignedText = std::string_view(text).substr(text.starts_with('-') ? 1 : 0);
  if (!unsignedText.empty() && unsignedText.front() >= '0' && unsignedText.front() <= '9') {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc() && stop == end) {
      return value;
    }
  }
  return extractDouble(text);
}

}  // namespace vemo
