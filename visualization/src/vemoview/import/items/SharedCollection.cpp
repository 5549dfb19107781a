#include "vemoview/import/items/SharedCollection.h"

#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>

namespace vemo {

namespace {

/// The visible content of the collection stays the same.
void hideNodesInstead(lum::DrawableCollection& collection) {
  for (const auto& node : collection.getNodes()) {
    static_cast<lum::Drawable*>(node.getObject())->getBaseAttributes().setVisibility(false, false);
  }
  collection.getBaseAttributes().setVisibility(true, false);
}

}  // namespace

bool isVisible(const lum::Drawable& drawable) {
  const auto* const base = drawable.findAttributes<lum::BaseAttributes>();
  return base == nullptr || base->getVisibility();
}

lum::DrawableCollection& shareCollection(lum::DrawableCollection& parent, const std::string& name,
                                         bool isHidden) {
  auto& collection = parent.findOrCreate<lum::DrawableCollection>(name);
  if (!isHidden && !isVisible(collection)) {
    hideNodesInstead(collection);
  }
  return collection;
}

void reportReplaced(const SharedBySiblings& shared, const lum::Node& node, FindingCode code,
                    const std::string& text, const std::string& path) {
  const auto origin = shared.origins.find(&node);
  if (shared.context != nullptr && origin != shared.origins.end()) {
    shared.context->reportReplaced(code, text, origin->second, {}, path);
  } else {
    report(shared.context, code, text);
  }
}

void reportSharedTransform(ReadingContext* context, const lum::DrawableCollection& collection,
                           bool hasTransform) {
  const auto* const base = collection.findAttributes<lum::BaseAttributes>();
  const bool hadTransform = base != nullptr && base->getTransform() != nullptr;
  const std::string others = "earlier items with the name " + ReadingContext::quoted(collection.getName());
  if (hadTransform && !hasTransform) {
    report(context, FindingCode::TRANSFORM_SHARED,
           "The transform of " + others + " also applies to this item");
  } else if (!hadTransform && hasTransform) {
    report(context, FindingCode::TRANSFORM_SHARED, "The transform also applies to " + others);
  }
}

}  // namespace vemo
