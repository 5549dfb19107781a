#pragma once

#include <cstdint>

namespace vemo {

/// What the process has allocated since it began, whether or not it was freed.
struct Allocations {
  std::uint64_t count = 0;
  std::uint64_t bytes = 0;

  static Allocations soFar();
  /// The bytes that are allocated at present.
  static std::int64_t current();
};

inline Allocations operator-(const Allocations& left, const Allocations& right) {
  return {left.count - right.count, left.bytes - right.bytes};
}

}  // namespace vemo
