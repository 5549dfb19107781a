#pragma once

#include <string>

namespace vemo {

/// Numbers in the texts of a scene description.
class QxString {
 public:
  QxString() = delete;

  /// A whole number in a radix of 2 to 36, in 32-bit arithmetic that wraps. A
  /// minus sign in front is skipped, not applied: "-12" is 12. An empty text
  /// is 0. Throws Exception for another radix, and NumberFormatException with
  /// the whole text when a character is not a digit of the radix.
  static int parseInt(const std::string& text, int radix);

  /// What a stream in the classic locale extracts from the text, whatever the
  /// process's locale: leading blanks are skipped, what follows the number is
  /// ignored, a text that does not start with a number gives 0, one too large
  /// for a double the largest of its sign. Never throws.
  static double parseDouble(const std::string& text);
};

}  // namespace vemo
