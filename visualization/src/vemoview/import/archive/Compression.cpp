#include "vemoview/import/archive/Compression.h"

#include "vemoview/import/archive/DeflateMethod.h"
#include "vemoview/import/archive/StoredMethod.h"

#include <algorithm>
#include <iterator>

namespace vemo {

const CompressionMethod* findCompressionMethod(std::uint64_t number) {
  static const StoredMethod stored;
  static const DeflateMethod deflate;
  struct Row {
    std::uint64_t number;
    const CompressionMethod* method;
  };
  static constexpr Row METHODS[] = {{0, &stored}, {8, &deflate}};
  const auto* const found = std::ranges::find(METHODS, number, &Row::number);
  return found != std::end(METHODS) ? found->method : nullptr;
}

}  // namespace vemo
