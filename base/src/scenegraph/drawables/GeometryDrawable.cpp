#include <vemo/scenegraph/drawables/GeometryDrawable.h>

namespace lum {

bool GeometryDrawable::addNode(Node& node) {
  if (node.getName().empty() && accepts(node)) {
    std::string name = node.className();
    for (std::size_t number = getNodeCount() + 1; find(node.className(), name) != nullptr; ++number) {
      name = node.className() + std::to_string(number);
    }
    node.setName(name);
  }
  return Drawable::addNode(node);
}

}  // namespace lum
