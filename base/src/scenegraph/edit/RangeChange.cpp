#include "scenegraph/edit/RangeChange.h"

#include "scenegraph/coloring/ColorBytes.h"

namespace lum {

void RangeChange::applyTo(ColorLookupTable& table) {
  const Vector2& former = table.getScalarRange();
  if (former[0] > former[1]) {
    const vemo::SharedColors drawn = _usable.make(table).table.rgba;
    const auto [known, isNew] = _numbers.try_emplace(&drawn.get());
    if (isNew) {
      known->second = vemo::numbersOf(drawn);
    }
    table.setColorValues(known->second);
    table.setNumColor(static_cast<std::int32_t>(known->second.get().size() / 4));
  }
  table.setScalarRange(_range);
}

}  // namespace lum
