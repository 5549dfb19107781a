#pragma once

#include <vemo/import/Export.h>

#include <span>

namespace vemo {

/// Converts big-endian 32-bit words to this machine's byte order, in place.
/// Bytes that make up no word stay as they are.
VEMO_IMPORT_EXPORT void convertWords(std::span<unsigned char> bytes);

}  // namespace vemo
