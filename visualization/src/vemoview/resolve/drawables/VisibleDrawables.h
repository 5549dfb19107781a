#pragma once

#include <vemo/resolve/InstanceTransforms.h>

#include <vector>

namespace lum {
class Drawable;
}

namespace vemo {

/// A drawable to be shown.
struct VisibleDrawable {
  const lum::Drawable* drawable;
  /// Whether clipping planes cut it and all its owners.
  bool isClipped;
  SharedInstanceTransforms transforms;
  /// Whether there would be more instances.
  bool areRepeatsLimited;
};

/// The visible drawables among a drawable and everything it owns, owners first,
/// in order. Throws SceneTooLarge when they have more instances than fit into
/// memory.
std::vector<VisibleDrawable> collectVisible(const lum::Drawable& root);

/// The same, as if none of them were hidden.
std::vector<VisibleDrawable> collectAll(const lum::Drawable& root);

}  // namespace vemo
