#include "vemoview/import/reading/ValueForms.h"

#include "vemoview/import/reading/SceneFileReader.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace vemo {

namespace {

constexpr std::string_view BLANKS = " \t\n\r\f\v";

/// Texts in untrusted files may be as long as the file.
constexpr std::size_t MAX_QUOTED_LENGTH = 60;

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

bool isHexadecimalDigit(char character) {
  return isDigit(character) || (character >= 'a' && character <= 'f') ||
         (character >= 'A' && character <= 'F');
}

/// Whether the whole text is a T, as std::from_chars has it.
template <class T>
bool isWholly(std::string_view text) {
  T value{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return error == std::errc() && stop == end;
}

std::string_view trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
  return text.substr(0, text.find_last_not_of(BLANKS) + 1);
}

bool isBoolean(std::string_view text) {
  return text == "true" || text == "false";
}

bool isInteger(std::string_view text) {
  return !text.empty() && isDigit(text.front()) && isWholly<int>(text);
}

bool isNumber(std::string_view text) {
  const std::string_view number = trimmed(text);
  const bool isSigned = number.starts_with('-') || number.starts_with('+');
  const std::string_view magnitude = number.substr(isSigned ? 1 : 0);
  // Words for infinity and the like are not numbers in a scene.
  return !magnitude.empty() && (isDigit(magnitude.front()) || magnitude.front() == '.') &&
         isWholly<double>(magnitude);
}

bool isColor(std::string_view text) {
  constexpr std::size_t DIGITS = 8;
  return text.size() >= DIGITS && std::ranges::all_of(text.substr(0, DIGITS), isHexadecimalDigit) &&
         trimmed(text.substr(DIGITS)).empty();
}

}  // namespace

const ValueForm BOOLEAN_FORM{isBoolean, "neither \"true\" nor \"false\""};
const ValueForm INTEGER_FORM{isInteger, "not a whole number from 0 to 2147483647"};
const ValueForm NUMBER_FORM{isNumber, "not a number"};
const ValueForm COLOR_FORM{isColor, "not of eight hexadecimal digits"};

std::string quotedUnlessLong(const std::string& text) {
  return text.size() <= MAX_QUOTED_LENGTH ? '"' + text + '"' : "of " + std::to_string(text.size()) + " bytes";
}

void reportUnreadable(SceneFileReader* reader, const std::string& text, const std::string& place,
                      const char* flaw, const std::string& meaning, const std::string& attribute) {
  if (reader != nullptr) {
    reader->report(
        FindingCode::VALUE_UNREADABLE,
        "The value " + quotedUnlessLong(text) + " of " + place + " is " + flaw + ": it counts as " + meaning,
        {}, attribute);
  }
}

}  // namespace vemo
