#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/Traversal.h>

namespace lum {

OwnedSlot::~OwnedSlot() {
  disown();
}

bool OwnedSlot::put(Node& owner, Node* node) {
  if (node == _node) {
    return true;
  }
  if (node != nullptr && (!_accepts(*node) || !canOwn(owner, *node))) {
    return false;
  }
  disown();
  _node = node;
  if (node != nullptr) {
    node->_owner = &owner;
  }
  _holder = node;
  owner.modified();
  return true;
}

void OwnedSlot::disown() {
  if (_node != nullptr) {
    _node->_owner = nullptr;
  }
}

}  // namespace lum
