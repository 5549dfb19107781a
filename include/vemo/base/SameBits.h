#pragma once

#include <vemo/base/Vector.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <vector>

namespace vemo {

/// Whether two values are equal bit by bit: unlike ==, distinguishes 0 from -0
/// and finds a NaN equal to itself.
template <class T>
bool sameBits(const T& a, const T& b) {
  return a == b;
}
inline bool sameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}
inline bool sameBits(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}
template <std::size_t N>
bool sameBits(const Vector<N, double>& a, const Vector<N, double>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), [](double x, double y) { return sameBits(x, y); });
}
inline bool sameBits(const std::vector<double>& a, const std::vector<double>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](double x, double y) { return sameBits(x, y); });
}
template <class T>
bool sameBits(const std::optional<T>& a, const std::optional<T>& b) {
  return a.has_value() == b.has_value() && (!a || sameBits(*a, *b));
}

}  // namespace vemo
