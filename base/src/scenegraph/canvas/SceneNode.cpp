#include <vemo/scenegraph/canvas/SceneNode.h>

namespace lum {

SceneCanvas& SceneNode::canvas(Owned<SceneCanvas>& slot, const char* name) {
  if (slot.get() == nullptr) {
    slot.ensure(*this).setName(name);
  }
  return *slot.get();
}

}  // namespace lum
