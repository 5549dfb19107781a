#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vemo {

/// Of red, green, blue and alpha.
inline constexpr std::ptrdiff_t CHANNELS = 4;

/// The bytes of so many colours, at most as many as are listed; what is outside 0..1 gets the nearer end,
/// what is not finite 0.
std::vector<std::uint8_t> bytesOf(const std::vector<double>& channels, std::ptrdiff_t colors);

/// The channels in 0..1.
std::vector<double> numbersOf(const std::vector<std::uint8_t>& rgba);

}  // namespace vemo
