#include "vemoview/import/reading/KeyDescription.h"

#include <fmt/format.h>
#include <utility>

namespace vemo {

namespace {

std::string codeSpan(const std::string& word) {
  return "`" + word + "`";
}

/// As "`LEFT`, `CENTER` or `RIGHT`".
std::string wordList(const std::string* words) {
  std::string list;
  for (const std::string* word = words; !word->empty(); ++word) {
    const bool isLast = (word + 1)->empty();
    list += (word == words ? "" : isLast ? " or " : ", ") + codeSpan(*word);
  }
  return list;
}

}  // namespace

KeyText describeKey(const KeyDescription& key, std::string defaultText) {
  if (!key.defaultText.empty()) {
    defaultText = key.defaultText;
  } else if (key.type == typeName<Color>() && key.whenAbsent == WhenAbsent::RESET) {
    defaultText = "required";
  }
  return {key.name, key.type, std::move(defaultText),
          key.words != nullptr ? wordList(key.words) + ": " + key.meaning : key.meaning};
}

std::string valueText(bool value) {
  return value ? "true" : "false";
}

std::string valueText(int value) {
  return std::to_string(value);
}

std::string valueText(double value) {
  return fmt::format("{:g}", value);
}

std::string valueText(const std::string& value) {
  return value.empty() ? "empty" : codeSpan(value);
}

std::string valueText(Color value) {
  return fmt::format("`{:02X}{:02X}{:02X}{:02X}`", value.r, value.g, value.b, value.a);
}

std::string valueText(const Vector<2, double>& value) {
  return fmt::format("{:g}, {:g}", value[0], value[1]);
}

std::string valueText(const Vector<3, double>& value) {
  return fmt::format("{:g}, {:g}, {:g}", value[0], value[1], value[2]);
}

std::string wordText(const std::string* words, int value) {
  return codeSpan(words[value]);
}

}  // namespace vemo
