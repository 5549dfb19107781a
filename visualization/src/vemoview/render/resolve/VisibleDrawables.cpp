#include "vemoview/render/resolve/VisibleDrawables.h"

#include <vemo/render/RenderErrors.h>
#include <vemo/scenegraph/drawables/Drawable.h>

namespace vemo {

namespace {

/// What is left of a drawable that stands in an owner.
VisibleDrawable within(const VisibleDrawable& owner, const lum::Drawable& drawable) {
  VisibleDrawable result{&drawable, owner.isClipped, owner.placements};
  if (const auto* const base = drawable.findAttributes<lum::BaseAttributes>()) {
    result.isClipped = result.isClipped && base->getClipPlanesEnabled();
    result.placements = place(base->getTransform(), owner.placements);
  }
  return result;
}

bool isHidden(const lum::Drawable& drawable) {
  const auto* const base = drawable.findAttributes<lum::BaseAttributes>();
  return base != nullptr && !base->getVisibility();
}

/// A small file may have very many drawables, each repeated very often.
class PlacementLimit {
 public:
  void count(const SharedPlacements& placements) {
    constexpr std::size_t MOST = 1'000'000;
    _total += placements == nullptr ? 0 : placements->size();
    if (_total > MOST) {
      throw RenderError("The scene is too large to be drawn: more than " + std::to_string(MOST) +
                        " copies of drawables");
    }
  }

 private:
  std::size_t _total = 0;
};

}  // namespace

std::vector<VisibleDrawable> collectVisible(const lum::Drawable& root) {
  std::vector<VisibleDrawable> result;
  PlacementLimit limit;
  const VisibleDrawable model{nullptr, true, nullptr};
  std::vector<VisibleDrawable> waiting;
  if (!isHidden(root)) {
    waiting.push_back(within(model, root));
  }
  while (!waiting.empty()) {
    const VisibleDrawable next = waiting.back();
    waiting.pop_back();
    const auto nodes = next.drawable->getNodes();
    // The last is visited next.
    for (std::size_t i = nodes.size(); i > 0; --i) {
      const auto* const below = dynamic_cast<const lum::Drawable*>(nodes[i - 1].get());
      if (below != nullptr && !isHidden(*below)) {
        waiting.push_back(within(next, *below));
        if (waiting.back().placements != next.placements) {
          limit.count(waiting.back().placements);
        }
      }
    }
    if (next.placements == nullptr || !next.placements->empty()) {
      result.push_back(next);
    }
  }
  return result;
}

}  // namespace vemo
