#include "scenegraph/edit/RangeChange.h"

namespace lum {

std::vector<double> numbersOf(const vemo::SharedColors& colors) {
  constexpr double MOST = 255.0;
  std::vector<double> numbers;
  numbers.reserve(colors.get().size());
  for (const std::uint8_t channel : colors.get()) {
    numbers.push_back(channel / MOST);
  }
  return numbers;
}

void RangeChange::applyTo(ColorLookupTable& table) {
  const Vector2& former = table.getScalarRange();
  if (former[0] > former[1]) {
    const vemo::SharedColors drawn = _usable.make(table).table.rgba;
    const auto [known, isNew] = _numbers.try_emplace(&drawn.get());
    if (isNew) {
      known->second = numbersOf(drawn);
    }
    table.setColorValues(known->second);
    table.setNumColor(static_cast<std::int32_t>(known->second.get().size() / 4));
  }
  table.setScalarRange(_range);
}

}  // namespace lum
