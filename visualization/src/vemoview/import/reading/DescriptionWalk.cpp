#include "vemoview/import/reading/DescriptionWalk.h"

#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/import/items/SceneItem.h>
#include <vemo/import/scene/Scene.h>
#include <vemo/import/xml/QxElement.h>

#include <vector>

namespace vemo {

namespace {

/// An element whose children are being visited.
struct OpenElement {
  const QxElement* element;
  std::size_t nextChild;
  std::size_t pathLength;
};

}  // namespace

void walkDescription(const QxElement& root, const std::function<bool(const PlacedElement&)>& visit) {
  // One path for all: there may be very many elements below long names.
  PlacedElement place{&root, Scene::XML_ENTITY, 0};
  std::vector<OpenElement> open;
  const auto enter = [&] {
    if (visit(place)) {
      open.push_back({place.element, 0, place.path.size()});
    }
  };
  enter();
  while (!open.empty()) {
    OpenElement& parent = open.back();
    place.path.resize(parent.pathLength);
    if (parent.nextChild == parent.element->getChildren().size()) {
      open.pop_back();
      continue;
    }
    place.element = parent.element->getChildren()[parent.nextChild++].get();
    place.depth = open.size();
    ReadingContext::extendPath(place.path, ReadingContext::pathPart(SceneItem::pathName(*place.element)));
    enter();
  }
}

void markTreeRead(const QxElement& root) {
  walkDescription(root, [](const PlacedElement& place) {
    place.element->markAllRead();
    return true;
  });
}

}  // namespace vemo
