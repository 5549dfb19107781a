#include "vemoview/resolve/decorations/LegendPlacement.h"

#include <vemo/scenegraph/Findings.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace vemo {

namespace {

/// Of places that were meant to touch.
constexpr double TOUCHING = 1e-6;

template <class Place>
bool overlap(const Place& a, const Place& b, std::size_t axis) {
  return std::min(a.high[axis], b.high[axis]) - std::max(a.low[axis], b.low[axis]) > TOUCHING;
}

}  // namespace

void LegendPlacement::place(LegendDecoration& legend, const std::string& name) {
  Place place{name, legend.position, legend.position + legend.size};
  if (const Place* const covered = findCovered(place)) {
    const std::string text = "The legend \"" + name + "\" would cover the legend \"" + covered->name + '"';
    if (const auto free = findFree(place, legend.isVertical)) {
      place = *free;
      legend.position = place.low;
      reportFinding(FindingCode::LEGEND_MOVED, text + " and is moved aside");
    } else {
      reportFinding(FindingCode::LEGENDS_OVERLAP, text + ", and there is no room beside it");
    }
  }
  _places.push_back(std::move(place));
}

const LegendPlacement::Place* LegendPlacement::findCovered(const Place& place) const {
  const auto found = std::ranges::find_if(
      _places, [&place](const Place& other) { return overlap(place, other, 0) && overlap(place, other, 1); });
  return found == _places.end() ? nullptr : &*found;
}

/// The nearer one of the free places beside the others, else above or below them; or the other way
/// round.
std::optional<LegendPlacement::Place> LegendPlacement::findFree(const Place& wanted, bool isAside) const {
  for (const std::size_t axis : {isAside ? 0U : 1U, isAside ? 1U : 0U}) {
    Place before = wanted;
    Place behind = wanted;
    const bool isFreeBefore = moveToFree(before, axis, false);
    const bool isFreeBehind = moveToFree(behind, axis, true);
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

/// Returns whether there is a free place in the window in this direction.
bool LegendPlacement::moveToFree(Place& place, std::size_t axis, bool isForward) const {
  const double size = place.high[axis] - place.low[axis];
  while (const Place* const covered = findCovered(place)) {
    place.low[axis] = isForward ? covered->high[axis] : covered->low[axis] - size;
    place.high[axis] = place.low[axis] + size;
    if (place.low[axis] < 0.0 || place.high[axis] > 1.0) {
      return false;
    }
  }
  return true;
}

/// Each two legends share the room between them equally.
void LegendPlacement::shareRoom(std::vector<Decoration>& decorations) const {
  for (Decoration& decoration : decorations) {
    auto* const legend = std::get_if<LegendDecoration>(&decoration.content);
    if (legend == nullptr) {
      continue;
    }
    const Place own{{}, legend->position, legend->position + legend->size};
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
