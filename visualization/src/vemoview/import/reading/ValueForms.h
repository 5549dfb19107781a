#pragma once

#include <string>
#include <string_view>

namespace vemo {

class SceneFileReader;

/// A form that the format prescribes for values. Texts in other forms may still
/// be read, but hardly as the value that was meant.
struct ValueForm {
  bool (*matches)(std::string_view text);
  /// What a text in another form is, such as "not a number".
  const char* flaw;
};

/// "true" and "false".
extern const ValueForm BOOLEAN_FORM;
/// Digits alone, of a number that an int can hold.
extern const ValueForm INTEGER_FORM;
/// A number that a double can hold, with blanks around it.
extern const ValueForm NUMBER_FORM;
/// Eight hexadecimal digits, with blanks behind them.
extern const ValueForm COLOR_FORM;

/// The text in quotation marks, or its size if it is long.
std::string quotedUnlessLong(const std::string& text);

/// Reports that a text of another form was read nevertheless. The reader may be
/// null.
/// @param place as "\"x\" of \"position\""
/// @param meaning what it was read as
/// @param attribute that the text is of
void reportUnreadable(SceneFileReader* reader, const std::string& text, const std::string& place,
                      const char* flaw, const std::string& meaning, const std::string& attribute);

}  // namespace vemo
