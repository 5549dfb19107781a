#include "vemoview/import/xml/DescriptionWalk.h"

#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/import/QxElement.h>
#include <vemo/import/SceneItem.h>

#include <utility>
#include <vector>

namespace vemo {

void walkDescription(const QxElement& root, const std::function<bool(const PlacedElement&)>& visit) {
  std::vector<PlacedElement> next{{&root, ReadingContext::pathPart(root.getName()), 0}};
  while (!next.empty()) {
    const PlacedElement place = std::move(next.back());
    next.pop_back();
    if (!visit(place)) {
      continue;
    }
    const auto& children = place.element->getChildren();
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
      next.push_back({child->get(), place.path + "/" + ReadingContext::pathPart(SceneItem::pathName(**child)),
                      place.depth + 1});
    }
  }
}

}  // namespace vemo
