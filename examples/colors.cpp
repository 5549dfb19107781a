#include "colors.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <fmt/format.h>

namespace examples {
namespace {

constexpr int TABLE_SIZE = 65;
constexpr std::size_t CHANNELS = 4;

int channel(const std::string& color, std::size_t index) {
  return std::stoi(color.substr(2 * index, 2), nullptr, 16);
}

}  // namespace

std::vector<std::string> blend(const std::vector<std::string>& colors, int count) {
  std::vector<std::string> result;
  const std::size_t last = colors.size() - 1;
  for (int i = 0; i < count; ++i) {
    const double place = static_cast<double>(i) / (count - 1) * static_cast<double>(last);
    const std::size_t left = std::min(static_cast<std::size_t>(place), last - 1);
    std::string color;
    for (std::size_t c = 0; c < CHANNELS; ++c) {
      const int from = channel(colors[left], c);
      const int to = channel(colors[left + 1], c);
      color += fmt::format("{:02x}", std::lround(from + (to - from) * (place - static_cast<double>(left))));
    }
    result.push_back(color);
  }
  return result;
}

std::vector<std::string> divergingColors() {
  return blend({"16308cff", "2f62c9ff", "5f9fe8ff", "aed2f2ff", "f2f2f0ff", "f6c3a0ff", "e5765bff",
                "c22a3aff", "7c0a2aff"},
               TABLE_SIZE);
}

std::vector<std::string> spectralColors() {
  return blend({"2b2a80ff", "2f5fbcff", "3f9cc4ff", "7cc7a6ff", "cfe59aff", "fbe68bff", "f7a860ff",
                "e35f45ff", "a51742ff"},
               TABLE_SIZE);
}

std::vector<std::string> sequentialColors() {
  return blend({"26106bff", "5a17a0ff", "9722a3ff", "c93e83ff", "ea6a55ff", "f9a03aff", "f6e04aff"},
               TABLE_SIZE);
}

}  // namespace examples
