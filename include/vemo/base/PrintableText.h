#pragma once

#include <vemo/base/Export.h>

#include <string>
#include <string_view>

namespace vemo {

/// The text with control characters, changes of direction, separators of lines and
/// invalid UTF-8 replaced by U+FFFD. Line feeds stay.
VEMO_BASE_EXPORT std::string toPrintable(std::string_view text);

/// The same in one line: line feeds become blanks.
VEMO_BASE_EXPORT std::string toPrintableLine(std::string_view text);

/// A message that may have "<br>" for line breaks, with the character instead.
VEMO_BASE_EXPORT std::string replaceBreaks(std::string_view message, char replacement);

}  // namespace vemo
