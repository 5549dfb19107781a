#include "base/HugePages.h"
#include "vemoview/import/archive/Inflate.h"

#include <cstdlib>
#include <libdeflate.h>
#include <memory>

namespace vemo {

namespace {

struct FreeBytes {
  void operator()(char* bytes) const { std::free(bytes); }
};
struct FreeDecompressor {
  void operator()(libdeflate_decompressor* decompressor) const { libdeflate_free_decompressor(decompressor); }
};

/// Content that cannot be compressed grows by five bytes for each block: a
/// stream of twice its size is not an honest one, and is not read whole.
bool isPlausible(std::uint64_t compressedSize, std::size_t size) {
  constexpr std::uint64_t SMALL = 0x10000;
  return compressedSize <= 2 * std::uint64_t{size} + SMALL;
}

}  // namespace

std::optional<std::size_t> inflateWhole(const CompressedBytes& compressed, std::span<char> content) {
  if (!isPlausible(compressed.size(), content.size())) {
    return std::nullopt;
  }
  const auto size = static_cast<std::size_t>(compressed.size());
  // Not with new: a failure would use up what is set aside (OS::MemoryReserve), though
  // it can be done without.
  const std::unique_ptr<char, FreeBytes> bytes(static_cast<char*>(std::malloc(size)));
  OS::preferHugePages(bytes.get(), size);
  const std::unique_ptr<libdeflate_decompressor, FreeDecompressor> decompressor(
      libdeflate_alloc_decompressor());
  if (!bytes || !decompressor || !compressed.read({bytes.get(), size}, 0)) {
    return std::nullopt;
  }
  std::size_t count = 0;
  const libdeflate_result result = libdeflate_deflate_decompress(decompressor.get(), bytes.get(), size,
                                                                 content.data(), content.size(), &count);
  return result == LIBDEFLATE_SUCCESS ? std::optional(count) : std::nullopt;
}

}  // namespace vemo
