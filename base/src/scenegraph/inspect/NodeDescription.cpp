#include "scenegraph/inspect/NodeDescription.h"

#include "base/Utf8.h"
#include <vemo/scenegraph/Node.h>

namespace lum {

std::string describeNode(const Node& node) {
  std::string names = vemo::shortName(node.getName());
  for (const Node* owner = node.getOwner(); owner != nullptr; owner = owner->getOwner()) {
    names.insert(0, vemo::shortName(owner->getName()) + "/");
  }
  return node.className() + " \"" + names + "\"";
}

}  // namespace lum
