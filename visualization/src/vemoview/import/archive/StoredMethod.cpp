#include "vemoview/import/archive/StoredMethod.h"

#include <algorithm>
#include <cstring>

namespace vemo {

std::optional<std::size_t> StoredMethod::decompress(const CompressedBlocks& blocks,
                                                    std::span<char> content) const {
  std::size_t filled = 0;
  while (filled < content.size()) {
    const auto block = blocks();
    if (!block) {
      return std::nullopt;
    }
    if (block->empty()) {
      break;
    }
    const std::size_t count = std::min(block->size(), content.size() - filled);
    std::memcpy(content.data() + filled, block->data(), count);
    filled += count;
  }
  return filled;
}

}  // namespace vemo
