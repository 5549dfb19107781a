#include "vemoview/import/archive/DeflateMethod.h"

#include "vemoview/import/archive/Inflate.h"

namespace vemo {

std::optional<std::size_t> DeflateMethod::decompress(const CompressedBytes& compressed,
                                                     std::span<char> content, ContentPass& /*pass*/) const {
  const auto count = inflateWhole(compressed, content);
  return count ? count : inflateInBlocks(compressed, content);
}

}  // namespace vemo
