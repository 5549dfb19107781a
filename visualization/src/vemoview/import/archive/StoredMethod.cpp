#include "vemoview/import/archive/StoredMethod.h"

#include <algorithm>

namespace vemo {

std::optional<std::size_t> StoredMethod::decompress(const CompressedBytes& compressed,
                                                    std::span<char> content) const {
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(compressed.size(), content.size()));
  return compressed.read(content.first(count), 0) ? std::optional(count) : std::nullopt;
}

}  // namespace vemo
