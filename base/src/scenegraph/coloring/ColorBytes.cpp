#include "scenegraph/coloring/ColorBytes.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace vemo {

namespace {

constexpr double MOST = 255.0;

std::uint8_t toByte(double value) {
  return std::isfinite(value) ? static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * MOST))
                              : 0;
}

}  // namespace

std::vector<std::uint8_t> bytesOf(const std::vector<double>& channels, std::ptrdiff_t colors) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(static_cast<std::size_t>(colors * CHANNELS));
  std::transform(channels.begin(), channels.begin() + colors * CHANNELS, std::back_inserter(bytes), toByte);
  return bytes;
}

std::vector<double> numbersOf(const std::vector<std::uint8_t>& rgba) {
  std::vector<double> numbers;
  numbers.reserve(rgba.size());
  for (const std::uint8_t channel : rgba) {
    numbers.push_back(channel / MOST);
  }
  return numbers;
}

}  // namespace vemo
