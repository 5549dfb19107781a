#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

namespace vemo {

/// Calls visit(std::span<const T>) for each longest run of elements that are the same as
/// the run's first.
template <class T, class IsSame, class Visit>
void forEachGroup(std::span<const T> elements, const IsSame& isSame, const Visit& visit) {
  while (!elements.empty()) {
    const auto end = std::ranges::find_if_not(
        elements, [&](const T& element) { return isSame(elements.front(), element); });
    const auto count = static_cast<std::size_t>(end - elements.begin());
    visit(elements.first(count));
    elements = elements.subspan(count);
  }
}

}  // namespace vemo
