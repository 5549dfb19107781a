#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

namespace vemo {

struct IndexRange {
  std::int64_t least;
  std::int64_t greatest;
};

/// As std::ranges::minmax of 32-bit indices, of which there is at least one; in half of
/// its time.
IndexRange rangeOf(std::span<const std::int32_t> indices);

/// 64-bit indices are rare.
inline IndexRange rangeOf(std::span<const std::int64_t> indices) {
  const auto [least, greatest] = std::ranges::minmax(indices);
  return {least, greatest};
}

}  // namespace vemo
