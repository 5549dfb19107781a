#include "vemoview/import/archive/StoredMethod.h"

#include <algorithm>

namespace vemo {

std::optional<std::size_t> StoredMethod::decompress(const CompressedBytes& compressed,
                                                    std::span<char> content, ContentPass& pass) const {
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(compressed.size(), content.size()));
  std::size_t done = 0;
  do {
    const std::size_t size = std::min(ContentPass::BLOCK, count - done);
    if (!compressed.read(content.subspan(done, size), done)) {
      return std::nullopt;
    }
    done += size;
    pass.advance(done);
  } while (done < count);
  return count;
}

}  // namespace vemo
