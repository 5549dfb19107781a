#pragma once

#include <vemo/base/Export.h>

#include <cstddef>

namespace vemo::OS {

/// Asks the system to back a large block of memory with huge pages, before the
/// block is filled for the first time. The first access to each small page costs
/// as much as copying it does; filling a block of huge pages takes half of the
/// time. Only huge pages that lie within the block are asked for, so that no
/// more memory is used: small blocks stay as they are.
VEMO_BASE_EXPORT void preferHugePages(void* block, std::size_t size);

/// Returns the memory behind bytes that nobody reads any more to the system; the block
/// around them stays allocated. Only huge pages that lie within the bytes are returned.
VEMO_BASE_EXPORT void releasePages(void* unused, std::size_t size);

}  // namespace vemo::OS
