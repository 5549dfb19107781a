#pragma once

#include <vemo/resolve/Decoration.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vemo {

/// Places the legends of a canvas so that none covers another.
class LegendPlacement {
 public:
  /// Moves a legend aside from those placed before, or reports that there is no room.
  void place(LegendDecoration& legend, const std::string& name);

  /// Shares out the room around the legends among decorations, which have been placed.
  void shareRoom(std::vector<Decoration>& decorations) const;

 private:
  struct Place {
    std::string name;
    Vector<2, double> low;
    Vector<2, double> high;
  };

  const Place* findCovered(const Place& place) const;
  std::optional<Place> findFree(const Place& wanted, bool isAside) const;
  bool moveToFree(Place& place, std::size_t axis, bool isForward) const;

  std::vector<Place> _places;
};

}  // namespace vemo
