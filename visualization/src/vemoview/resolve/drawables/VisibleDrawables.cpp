#include "vemoview/resolve/drawables/VisibleDrawables.h"

#include "vemoview/resolve/drawables/TransformResolver.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/drawables/Drawable.h>

namespace vemo {

namespace {

/// A drawable in the context of its owner.
VisibleDrawable within(const VisibleDrawable& owner, const lum::Drawable& drawable) {
  VisibleDrawable result{&drawable, owner.isClipped, owner.transforms, owner.areRepeatsLimited};
  if (const auto* const base = drawable.findAttributes<lum::BaseAttributes>()) {
    const NodeScope scope(drawable);
    result.isClipped = result.isClipped && base->getClipPlanesEnabled();
    result.transforms = resolveTransforms(base->getTransform(), owner.transforms, result.areRepeatsLimited);
  }
  return result;
}

bool isHidden(const lum::Drawable& drawable) {
  const auto* const base = drawable.findAttributes<lum::BaseAttributes>();
  return base != nullptr && !base->getVisibility();
}

/// A small file may have very many drawables, each repeated very often.
class InstanceLimit {
 public:
  void count(const SharedInstanceTransforms& transforms) {
    constexpr std::size_t MAX_DRAWABLES = 1'000'000;
    _total += transforms == nullptr ? 0 : transforms->size();
    if (_total > MAX_DRAWABLES) {
      throw SceneTooLarge("The scene is too large to be drawn: more than " + std::to_string(MAX_DRAWABLES) +
                          " instances of drawables");
    }
  }

 private:
  std::size_t _total = 0;
};

template <class IsWanted>
std::vector<VisibleDrawable> collect(const lum::Drawable& root, IsWanted&& isWanted) {
  std::vector<VisibleDrawable> result;
  InstanceLimit limit;
  const VisibleDrawable model{nullptr, true, nullptr, false};
  std::vector<VisibleDrawable> waiting;
  if (isWanted(root)) {
    waiting.push_back(within(model, root));
  }
  while (!waiting.empty()) {
    const VisibleDrawable next = waiting.back();
    waiting.pop_back();
    const auto nodes = next.drawable->getNodes();
    // The last is visited next.
    for (std::size_t i = nodes.size(); i > 0; --i) {
      const auto* const below = dynamic_cast<const lum::Drawable*>(nodes[i - 1].get());
      if (below != nullptr && isWanted(*below)) {
        waiting.push_back(within(next, *below));
        if (waiting.back().transforms != next.transforms) {
          limit.count(waiting.back().transforms);
        }
      }
    }
    if (next.transforms == nullptr || !next.transforms->empty()) {
      result.push_back(next);
    }
  }
  return result;
}

}  // namespace

std::vector<VisibleDrawable> collectVisible(const lum::Drawable& root) {
  return collect(root, [](const lum::Drawable& drawable) { return !isHidden(drawable); });
}

std::vector<VisibleDrawable> collectAll(const lum::Drawable& root) {
  return collect(root, [](const lum::Drawable&) { return true; });
}

}  // namespace vemo
