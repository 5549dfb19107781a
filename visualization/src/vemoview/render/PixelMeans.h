#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vemo {

/// Makes a row of pixels of three bytes (red, green, blue) from rows of four
/// (and opacity): each is the mean of a square of pixels.
/// @param from as many rows as a square has, one after another
/// @param factor the length of a square's side, 1 or 2: known when this is
/// compiled, it takes a fifth of the time
void averageSquares(std::span<const std::uint8_t> from, int factor, std::span<std::uint8_t> to);

}  // namespace vemo
