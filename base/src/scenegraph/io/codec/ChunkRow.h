#pragma once

#include "scenegraph/ArrayType.h"

#include <cstdint>

namespace lum::io {

class ByteReader;
class ByteWriter;

/// What a table says of an array whose bytes lie in a chunk.
struct ChunkRow {
  ArrayType type;
  std::uint64_t components;
  std::uint64_t tuples;
  /// 0 for an array without a name, else one more than the number of a string.
  std::uint64_t name;
  /// XXH3 64 of the bytes.
  std::uint64_t hash;

  std::uint64_t bytes() const { return tuples * components * arrayTypeSize(type); }

  friend bool operator==(const ChunkRow&, const ChunkRow&) = default;
};

/// The row of an array; throws FileError (WriteError) for one that cannot be
/// stored. Name and hash are left open.
ChunkRow rowOf(vtkDataArray& array);

void writeRow(ByteWriter& out, const ChunkRow& row);

/// Checks the row in itself, and that there is a string of the name's number.
ChunkRow readRow(ByteReader& in, std::uint64_t stringCount);

/// The least that a row takes.
inline constexpr std::size_t MIN_ROW_BYTES = 12;

}  // namespace lum::io
