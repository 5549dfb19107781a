#include "vemoview/import/xml/QxString.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/xml/Color.h>

#include <cstddef>

namespace vemo {

Color Color::parse(const std::string& text) {
  if (text.length() < 8) {
    // Hosts recognise this error by its origin, wherever the code is today.
    throw InternalError("Can't extract color from such a short string", "colorStr.length() >= 8",
                        "visualization/src/vemoview/import/QxElement", 22);
  }
  const auto channel = [&text](std::size_t index) {
    return static_cast<std::uint8_t>(QxString::parseInt(text.substr(2 * index, 2), 16));
  };
  return {channel(0), channel(1), channel(2), channel(3)};
}

}  // namespace vemo
