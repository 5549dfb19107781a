#pragma once

#include <string_view>

/// Streams:
///
///   scene   SCENE_SIGNATURE, then messages, each: 8 bytes size, 8 bytes XXH3 64
///           of what follows, tables and a graph (GraphFormat.h)
///   data    DATA_SIGNATURE, a byte: the size of what comes before the array;
///           the number of its chunk and its row (ChunkRow.h); the array
///
/// Tables and numbers go on from message to message.
namespace lum::io {

inline constexpr std::string_view SCENE_SIGNATURE = "LUMSCN2\n";
/// Of streams without tables of lists, which are read.
inline constexpr std::string_view OLD_SCENE_SIGNATURE = "LUMSCN1\n";
inline constexpr std::string_view DATA_SIGNATURE = "LUMDAT1\n";

}  // namespace lum::io
