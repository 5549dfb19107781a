#include "base/NearNames.h"
#include "scenegraph/inspect/NodePaths.h"
#include <vemo/base/PrintableText.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/edit/EditError.h>
#include <vemo/scenegraph/edit/Items.h>

#include <cstddef>
#include <set>

namespace lum {

namespace {

/// Longer names are not suggested, and need not be kept for that.
constexpr std::size_t LONGEST_SUGGESTION = 300;

bool endsInPath(const std::string& path, const std::string& end) {
  return path == end || path.ends_with("/" + end);
}

/// Whether everything that contains the drawable is shown.
bool areOwnersShown(const Drawable& drawable) {
  const auto* const owner = dynamic_cast<const Drawable*>(drawable.getOwner());
  return owner == nullptr || (isShown(*owner) && areOwnersShown(*owner));
}

void hideContent(const Drawable& owner) {
  for (const auto& node : owner.getNodes()) {
    if (auto* const drawable = dynamic_cast<Drawable*>(node.getObject())) {
      setShown(*drawable, false);
    }
  }
}

}  // namespace

EditError::~EditError() = default;

std::vector<Drawable*> findItems(SceneNode& scene, const std::string& item) {
  NodePaths paths(scene);
  std::vector<Drawable*> found;
  std::set<std::string> names;
  const bool isPath = item.find('/') != std::string::npos;
  forEachNodeOf<Drawable>(scene, [&](Drawable& drawable) {
    const std::string path = paths.getPath(drawable).value();
    if (drawable.getName() == item || endsInPath(path, item)) {
      found.push_back(&drawable);
    } else if (drawable.getName() != drawable.className()) {
      const std::string& name = isPath ? path : drawable.getName();
      if (name.size() <= LONGEST_SUGGESTION) {
        names.insert(name);
      }
    }
  });
  if (found.empty()) {
    throw EditError("The scene has no item \"" + vemo::toPrintableLine(item) + '"' +
                    vemo::suggestNames(item, names));
  }
  return found;
}

bool isShown(const Drawable& drawable) {
  const auto* const base = drawable.findAttributes<BaseAttributes>();
  return base == nullptr || base->getVisibility();
}

void setShown(Drawable& drawable, bool isVisible) {
  if (isShown(drawable) != isVisible) {
    drawable.getBaseAttributes().setVisibility(isVisible, false);
  }
}

void reveal(Drawable& drawable) {
  auto* const owner = dynamic_cast<Drawable*>(drawable.getOwner());
  if (owner != nullptr && !(isShown(*owner) && areOwnersShown(*owner))) {
    reveal(*owner);
    hideContent(*owner);
  }
  setShown(drawable, true);
}

void revealAll(Drawable& drawable) {
  reveal(drawable);
  forEachNodeOf<Drawable>(drawable, [](Drawable& each) { setShown(each, true); });
}

}  // namespace lum
