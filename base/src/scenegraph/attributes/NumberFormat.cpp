#include "scenegraph/attributes/NumberFormat.h"

#include <algorithm>
#include <cstddef>

namespace lum {

namespace {

constexpr std::size_t MAX_LENGTH = 64;
constexpr std::size_t MAX_DIGITS = 2;

/// How many characters at the front are among these.
std::size_t countLeading(std::string_view text, std::string_view characters) {
  return std::min(text.find_first_not_of(characters), text.size());
}

/// Takes digits from the front; false when there are too many.
bool takeNumber(std::string_view& text) {
  const std::size_t count = countLeading(text, "0123456789");
  text.remove_prefix(count);
  return count <= MAX_DIGITS;
}

/// Takes a conversion without its per cent sign from the front; false when it
/// is not one for a double.
bool takeConversion(std::string_view& text) {
  text.remove_prefix(countLeading(text, "-+ #0"));
  if (!takeNumber(text)) {
    return false;
  }
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    if (!takeNumber(text)) {
      return false;
    }
  }
  // A lowercase l has no effect here, and is often written.
  text.remove_prefix(text.starts_with('l') ? 1 : 0);
  if (countLeading(text, "eEfFgGaA") == 0) {
    return false;
  }
  text.remove_prefix(1);
  return true;
}

}  // namespace

bool isNumberFormat(std::string_view text) {
  if (text.size() > MAX_LENGTH || text.find('\0') != std::string_view::npos) {
    return false;
  }
  int conversions = 0;
  for (std::size_t sign = text.find('%'); sign != std::string_view::npos; sign = text.find('%')) {
    text.remove_prefix(sign + 1);
    if (text.starts_with('%')) {
      text.remove_prefix(1);
    } else if (!takeConversion(text) || ++conversions > 1) {
      return false;
    }
  }
  return conversions == 1;
}

}  // namespace lum
