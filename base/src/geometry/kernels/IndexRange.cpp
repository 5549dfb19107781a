#include "geometry/kernels/IndexRange.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace vemo {

namespace {

constexpr std::size_t VECTOR_SIZE = 4;
using Indices [[gnu::vector_size(VECTOR_SIZE * sizeof(std::int32_t))]] = std::int32_t;

/// Comparisons of one vector wait for one another; those of several do not.
constexpr std::size_t VECTORS = 4;
constexpr std::size_t INDICES_AT_ONCE = VECTORS * VECTOR_SIZE;

}  // namespace

IndexRange rangeOf(std::span<const std::int32_t> indices) {
  std::int32_t least = indices.front();
  std::int32_t greatest = indices.front();
  for (const std::int32_t index : indices.last(indices.size() % INDICES_AT_ONCE)) {
    least = std::min(least, index);
    greatest = std::max(greatest, index);
  }
  std::array<Indices, VECTORS> low;
  std::array<Indices, VECTORS> high;
  low.fill(Indices{} + least);
  high.fill(Indices{} + greatest);
  for (std::size_t i = 0; i + INDICES_AT_ONCE <= indices.size(); i += INDICES_AT_ONCE) {
    for (std::size_t part = 0; part < VECTORS; ++part) {
      Indices value;
      std::memcpy(&value, &indices[i + part * VECTOR_SIZE], sizeof value);
      low[part] = value < low[part] ? value : low[part];
      high[part] = value > high[part] ? value : high[part];
    }
  }
  for (std::size_t lane = 0; lane < INDICES_AT_ONCE; ++lane) {
    least = std::min(least, std::int32_t{low[lane / VECTOR_SIZE][lane % VECTOR_SIZE]});
    greatest = std::max(greatest, std::int32_t{high[lane / VECTOR_SIZE][lane % VECTOR_SIZE]});
  }
  return {least, greatest};
}

}  // namespace vemo
