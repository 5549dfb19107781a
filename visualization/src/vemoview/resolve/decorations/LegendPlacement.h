#pragma once

#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/SceneResolver.h>

#include <vector>

namespace vemo {

/// Places the legends of a canvas so that none covers another.
class LegendPlacement {
 public:
  /// Moves a legend aside from those placed before, hidden since or not. Those that cannot be seen
  /// together are not reported; without room beside all, a legend may cover hidden ones.
  void place(LegendDecoration& legend, const lum::Drawable& drawable, const DrawableSet& visible);

  /// Shares out the room around the legends among decorations, which have been placed.
  void shareRoom(std::vector<Decoration>& decorations) const;

 private:
  struct Place {
    const lum::Drawable* drawable;
    Vector<2, double> low;
    Vector<2, double> high;
  };

  std::vector<Place> _places;
};

}  // namespace vemo
