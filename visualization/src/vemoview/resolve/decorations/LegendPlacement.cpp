#include "vemoview/resolve/decorations/LegendPlacement.h"

#include "base/Utf8.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/Drawable.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <variant>

namespace vemo {

namespace {

/// Of places that were meant to touch.
constexpr double TOUCHING = 1e-6;

template <class Place>
bool overlap(const Place& a, const Place& b, std::size_t axis) {
  return std::min(a.high[axis], b.high[axis]) - std::max(a.low[axis], b.low[axis]) > TOUCHING;
}

template <class Place>
const Place* findCovered(const std::vector<Place>& places, const Place& place) {
  const auto found = std::ranges::find_if(
      places, [&place](const Place& other) { return overlap(place, other, 0) && overlap(place, other, 1); });
  return found == places.end() ? nullptr : &*found;
}

/// Moves a place past others until it is free; false if that is not in the window.
template <class Place>
bool moveToFree(const std::vector<Place>& others, Place& place, std::size_t axis, bool isForward) {
  std::vector<Place> inWay;
  std::ranges::copy_if(others, std::back_inserter(inWay),
                       [&](const Place& other) { return overlap(place, other, 1 - axis); });
  std::ranges::sort(inWay, [=](const Place& a, const Place& b) {
    return isForward ? a.low[axis] < b.low[axis] : a.high[axis] > b.high[axis];
  });
  const double size = place.high[axis] - place.low[axis];
  for (const Place& other : inWay) {
    if (overlap(place, other, axis)) {
      place.low[axis] = isForward ? other.high[axis] : other.low[axis] - size;
      place.high[axis] = place.low[axis] + size;
    }
  }
  const bool isInside = place.low[axis] >= -TOUCHING && place.high[axis] <= 1.0 + TOUCHING;
  place.low[axis] = std::clamp(place.low[axis], 0.0, std::max(1.0 - size, 0.0));
  place.high[axis] = place.low[axis] + size;
  return isInside;
}

/// The nearer one of the free places beside the others, else above or below them; or the other way
/// round.
template <class Place>
std::optional<Place> findFree(const std::vector<Place>& others, const Place& wanted, bool isAside) {
  for (const std::size_t axis : {isAside ? 0U : 1U, isAside ? 1U : 0U}) {
    Place before = wanted;
    Place behind = wanted;
    const bool isFreeBefore = moveToFree(others, before, axis, false);
    const bool isFreeBehind = moveToFree(others, behind, axis, true);
    const bool isNearerBehind = behind.low[axis] - wanted.low[axis] < wanted.low[axis] - before.low[axis];
    if (isFreeBehind && (isNearerBehind || !isFreeBefore)) {
      return behind;
    }
    if (isFreeBefore) {
      return before;
    }
  }
  return std::nullopt;
}

}  // namespace

void LegendPlacement::place(LegendDecoration& legend, const lum::Drawable& drawable,
                            const DrawableSet& visible) {
  Place place{&drawable, legend.position, legend.position + legend.size};
  if (findCovered(_places, place) != nullptr) {
    std::vector<Place> seen;
    if (visible.contains(&drawable)) {
      std::ranges::copy_if(_places, std::back_inserter(seen),
                           [&](const Place& other) { return visible.contains(other.drawable); });
    }
    const Place* const covered = findCovered(seen, place);
    auto free = findFree(_places, place, legend.isVertical);
    if (!free && covered != nullptr) {
      free = findFree(seen, place, legend.isVertical);
    }
    if (covered != nullptr) {
      const std::string text = "The legend \"" + shortName(drawable.getName()) +
                               "\" would cover the legend \"" + shortName(covered->drawable->getName()) + '"';
      if (free) {
        reportFinding(FindingCode::LEGEND_MOVED, text + " and is moved aside");
      } else {
        reportFinding(FindingCode::LEGENDS_OVERLAP, text + ", and there is no room beside it");
      }
    }
    place = free.value_or(place);
    legend.position = place.low;
  }
  _places.push_back(place);
}

/// Each two legends share the room between them equally.
void LegendPlacement::shareRoom(std::vector<Decoration>& decorations) const {
  for (Decoration& decoration : decorations) {
    auto* const legend = std::get_if<LegendDecoration>(&decoration.content);
    if (legend == nullptr) {
      continue;
    }
    const Place own{nullptr, legend->position, legend->position + legend->size};
    for (const Place& other : _places) {
      const std::size_t axis = overlap(own, other, 1) ? 0 : 1;
      if (overlap(own, other, axis)) {
        continue;
      }
      if (own.low[axis] < other.low[axis]) {
        legend->roomHigh[axis] = std::min(legend->roomHigh[axis], (own.high[axis] + other.low[axis]) / 2.0);
      } else {
        legend->roomLow[axis] = std::max(legend->roomLow[axis], (other.high[axis] + own.low[axis]) / 2.0);
      }
    }
  }
}

}  // namespace vemo
