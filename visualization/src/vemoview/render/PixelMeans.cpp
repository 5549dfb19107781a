#include "vemoview/render/PixelMeans.h"

#include <vemo/base/InternalError.h>

namespace vemo {

namespace {

constexpr std::size_t FROM_CHANNELS = 4;
constexpr std::size_t TO_CHANNELS = 3;

template <std::size_t FACTOR>
void average(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to) {
  constexpr unsigned AREA = FACTOR * FACTOR;
  const std::size_t rowBytes = pixels * FACTOR * FROM_CHANNELS;
  for (std::size_t pixel = 0; pixel < pixels; ++pixel, from += FACTOR * FROM_CHANNELS, to += TO_CHANNELS) {
    for (std::size_t channel = 0; channel < TO_CHANNELS; ++channel) {
      unsigned sum = AREA / 2;
      for (std::size_t row = 0; row < FACTOR; ++row) {
        for (std::size_t column = 0; column < FACTOR; ++column) {
          sum += from[row * rowBytes + column * FROM_CHANNELS + channel];
        }
      }
      to[channel] = static_cast<std::uint8_t>(sum / AREA);
    }
  }
}

}  // namespace

void averageSquares(std::span<const std::uint8_t> from, int factor, std::span<std::uint8_t> to) {
  const std::size_t pixels = to.size() / TO_CHANNELS;
  VEMO_REQUIRE(from.size() == pixels * FROM_CHANNELS * static_cast<std::size_t>(factor * factor),
               "The rows have as many squares as there are pixels");
  VEMO_REQUIRE(factor == 1 || factor == 2, "Pixels are taken as they are, or in squares of four");
  if (factor == 1) {
    average<1>(from.data(), pixels, to.data());
  } else {
    average<2>(from.data(), pixels, to.data());
  }
}

}  // namespace vemo
