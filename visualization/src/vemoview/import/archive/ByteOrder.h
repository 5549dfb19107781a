#pragma once

#include <span>

namespace vemo {

/// Converts big-endian 32-bit words to this machine's byte order, in place.
/// Bytes that make up no word stay as they are.
void convertWords(std::span<unsigned char> bytes);

}  // namespace vemo
