#include "vemoview/resolve/canvas/LayerCount.h"

#include <algorithm>

namespace vemo {

void LayerCount::add(std::span<const PictureSamples::Place> corners) {
  if (corners.size() < 3 || _most == _limit) {
    return;
  }
  if (_steps > MOST_STEPS) {
    _most = _limit;
    return;
  }
  _counts.resize(_samples.columnCount() * _samples.rowCount());
  _samples.forEachRow(corners, _steps, [this](std::size_t row, std::size_t begin, std::size_t end) {
    std::uint8_t* const counts = _counts.data() + row * _samples.columnCount();
    std::uint8_t most = _most;
    for (std::size_t column = begin; column < end; ++column) {
      most = std::max(most, ++counts[column]);
    }
    _most = most;
  });
}

}  // namespace vemo
