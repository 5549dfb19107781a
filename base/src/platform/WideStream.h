#pragma once

#include "vemo_base_export.h"

#include <ostream>
#include <string>

/// Writes a wide text, most often a path, to a narrow stream: as UTF-8, and as
/// the bytes of the file's name where that is not valid UTF-8. Width and fill
/// of the stream count bytes. Stands in the global namespace; code in another
/// namespace that has output operators of its own says `using ::operator<<`.
VEMO_BASE_EXPORT std::ostream& operator<<(std::ostream& out, const std::wstring& text);
