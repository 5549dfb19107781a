#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/xml/Color.h>

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace vemo {

/// What happens to a member whose key is missing.
enum class WhenAbsent {
  RESET,  ///< It becomes 0, false, empty or the first word; for a colour this is an error.
  KEPT,   ///< It keeps its value.
};

/// What can be said of a key without knowing its item.
struct KeyDescription {
  /// Of the attribute, or of the child element for vectors and elements.
  std::string name;
  WhenAbsent whenAbsent = WhenAbsent::RESET;
  /// For the page on the scene format, in Markdown.
  std::string meaning;
  /// "integer", "word", ...
  std::string type;
  /// On the page instead of the default value, if that depends on other keys.
  std::string defaultText;
  /// The names of an enumeration's values, in order; the last one is empty.
  const std::string* words = nullptr;
  /// A value that cannot be read is ignored, with a finding, whatever the others of its
  /// table do.
  bool isIgnoredIfBad = false;
  /// Items that share the others of their table have this one of their own.
  bool isOwn = false;
  /// A scene graph cannot hold the value, and loses nothing without it.
  bool isWithoutEffect = false;
  /// Colours: nothing is as translucent as the alpha says.
  bool isAlphaUnused = false;
  /// Bits of the types of items that it applies to.
  unsigned appliesTo = ~0U;
  /// Numbers out of this range are ignored, with a finding.
  double least = -std::numeric_limits<double>::infinity();
  double greatest = std::numeric_limits<double>::infinity();
  /// Texts that it rejects are ignored, for the reason below. Null allows all.
  bool (*isAllowed)(std::string_view text) = nullptr;
  std::string whyNotAllowed;
};

/// A row of the page on the scene format.
struct KeyText {
  std::string name;
  std::string type;
  std::string defaultText;
  std::string meaning;
};

/// @param defaultText of the item's member
KeyText describeKey(const KeyDescription& key, std::string defaultText);

/// The name of the type of a member's values on the page.
template <class T>
constexpr const char* typeName() {
  if constexpr (std::is_enum_v<T>) {
    return "word";
  } else if constexpr (std::is_same_v<T, bool>) {
    return "boolean";
  } else if constexpr (std::is_integral_v<T>) {
    return "integer";
  } else if constexpr (std::is_floating_point_v<T>) {
    return "number";
  } else if constexpr (std::is_same_v<T, std::string>) {
    return "text";
  } else if constexpr (std::is_same_v<T, std::optional<std::string>>) {
    return "entry";
  } else if constexpr (std::is_same_v<T, Color>) {
    return "colour";
  } else if constexpr (std::is_same_v<T, Vector<2, double>> || std::is_same_v<T, Vector<3, double>> ||
                       std::is_same_v<T, std::unique_ptr<Vector<3, double>>>) {
    return "vector";
  } else {
    return "element";
  }
}

// The default values of members, as the page writes them.

std::string valueText(bool value);
std::string valueText(int value);
std::string valueText(double value);
std::string valueText(const std::string& value);
std::string valueText(Color value);
std::string valueText(const Vector<2, double>& value);
std::string valueText(const Vector<3, double>& value);

/// Of anything else, which is optional.
template <class T>
requires(!std::is_arithmetic_v<T>) std::string valueText(const T& /*value*/) {
  return "none";
}

std::string wordText(const std::string* words, int value);

}  // namespace vemo
