#pragma once

#include "vemoview/resolve/canvas/PictureSamples.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vemo {

/// Counts the shapes at each sample of a canvas.
class LayerCount {
 public:
  /// @param limit below 255: no more are counted
  LayerCount(const PictureSamples& samples, std::uint8_t limit) : _samples(samples), _limit(limit) {}

  /// @param corners of a convex polygon, or of nothing
  void add(std::span<const PictureSamples::Place> corners);

  /// At one sample; the limit if counting took too long.
  std::uint8_t getMost() const { return _most; }

 private:
  /// Rows of samples: about a second, where most shapes have a few.
  static constexpr long MOST_STEPS = 50'000'000;

  PictureSamples _samples;
  std::uint8_t _limit;
  std::uint8_t _most = 0;
  long _steps = 0;
  /// Row by row; empty until there is a shape.
  std::vector<std::uint8_t> _counts;
};

}  // namespace vemo
