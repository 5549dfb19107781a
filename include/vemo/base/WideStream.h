#pragma once

#include <vemo/base/Export.h>

#include <ostream>
#include <string>

namespace vemo {

/// Writes a wide text, usually a path, to a narrow stream as UTF-8, and as the
/// bytes of the file's name where that is not valid UTF-8. The stream's width and
/// fill count bytes. Code in another namespace needs `using vemo::operator<<`.
VEMO_BASE_EXPORT std::ostream& operator<<(std::ostream& out, const std::wstring& text);

}  // namespace vemo
