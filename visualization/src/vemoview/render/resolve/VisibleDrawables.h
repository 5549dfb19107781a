#pragma once

#include "vemoview/render/resolve/Placements.h"

#include <unordered_set>
#include <vector>

namespace lum {
class Drawable;
}

namespace vemo {

/// A drawable that is not hidden, nor is any of those that own it.
struct VisibleDrawable {
  const lum::Drawable* drawable;
  /// Whether clipping planes cut it, and all that own it.
  bool isClipped;
  SharedPlacements placements;
};

using DrawableSet = std::unordered_set<const lum::Drawable*>;

/// The visible ones among a drawable and all that it owns, owners first, in
/// order. Throws RenderError when they have more placements than can be held.
std::vector<VisibleDrawable> collectVisible(const lum::Drawable& root);

}  // namespace vemo
