#pragma once

#include <vemo/base/Export.h>

#include <ostream>
#include <string>

namespace vemo {

/// Writes a wide text, most often a path, to a narrow stream: as UTF-8, and as
/// the bytes of the file's name where that is not valid UTF-8. Width and fill
/// of the stream count bytes. Code in a
/// namespace that has output operators of its own says `using vemo::operator<<`.
VEMO_BASE_EXPORT std::ostream& operator<<(std::ostream& out, const std::wstring& text);

}  // namespace vemo
