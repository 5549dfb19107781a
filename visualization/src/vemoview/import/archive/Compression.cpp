#include "vemoview/import/archive/Compression.h"

#include "vemoview/import/archive/DeflateMethod.h"
#include "vemoview/import/archive/StoredMethod.h"

#include <algorithm>
#include <iterator>

namespace vemo {

namespace {

template <class Method>
constexpr Method INSTANCE{};

struct Row {
  std::uint64_t number;
  const CompressionMethod* method;
};

constexpr Row METHODS[] = {
    {0, &INSTANCE<StoredMethod>},
    {8, &INSTANCE<DeflateMethod>},
};

}  // namespace

const CompressionMethod* findCompressionMethod(std::uint64_t number) {
  const auto* const found = std::ranges::find(METHODS, number, &Row::number);
  return found != std::end(METHODS) ? found->method : nullptr;
}

}  // namespace vemo
