#pragma once

#include "vemoview/import/archive/Compression.h"
namespace vemo {

/// As CompressionMethod::decompress, for deflated content: the plain way, block
/// by block. It copes with streams that have no end, and with content that is
/// shorter than what they hold.
std::optional<std::size_t> inflateInBlocks(const CompressedBytes& compressed, std::span<char> content);

/// The same in less than half of the time, for streams that end within the
/// content and have no more bytes than such content could need. Nothing for
/// others: what is wrong with them the plain way finds out.
std::optional<std::size_t> inflateWhole(const CompressedBytes& compressed, std::span<char> content);

}  // namespace vemo
