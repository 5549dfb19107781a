#pragma once

#include "scenegraph/io/bytes/InputSource.h"
#include "scenegraph/io/codec/ChunkRow.h"

#include <vtkSmartPointer.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

class vtkDataArray;

namespace lum::io {

/// XXH3 64.
std::uint64_t hashOf(std::string_view bytes);

/// The same, and calls visit with each block of the bytes while it is still in the
/// processor's cache.
std::uint64_t hashInBlocks(std::string_view bytes, const std::function<void(std::string_view)>& visit);

/// The hash of the next bytes of a source, without holding more than a block of them. Nothing
/// when visit returned false for a block. Throws FileError (ReadError) when there are too few.
std::optional<std::uint64_t> hashNext(InputSource& source, std::uint64_t size,
                                      const std::function<bool(std::string_view)>& visit);

/// The bytes of an array where they lie.
std::string_view bytesOf(vtkDataArray& array);

/// Reads the bytes at the source's position straight into a new array. Throws
/// FileError (ReadError) when there are too few, or they have another hash.
vtkSmartPointer<vtkDataArray> readArray(InputSource& source, const ChunkRow& row);

/// Reads them and checks their hash only.
void checkArray(InputSource& source, const ChunkRow& row);

/// Reads them and compares them with those of an array of the same size.
bool isSameArray(InputSource& source, const ChunkRow& row, vtkDataArray& array);

}  // namespace lum::io
