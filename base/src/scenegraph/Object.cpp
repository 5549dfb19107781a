#include <vemo/scenegraph/Object.h>

namespace lum {

Object::~Object() {
  if (_weakCell) {
    *_weakCell = nullptr;
  }
}

void Object::destroy() noexcept {
  delete this;
}

void Object::release() const noexcept {
  if (_references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    destroyLater(const_cast<Object*>(this));
  }
}

std::shared_ptr<Object*> Object::getWeakCell() {
  if (!_weakCell) {
    _weakCell = std::make_shared<Object*>(this);
  }
  return _weakCell;
}

// Destructors that release objects re-enter here; the outermost call drains the
// list.
void Object::destroyLater(Object* object) noexcept {
  thread_local Object* waiting = nullptr;
  thread_local bool working = false;
  object->_nextToDestroy = waiting;
  waiting = object;
  if (working) {
    return;
  }
  working = true;
  while (waiting != nullptr) {
    Object* next = waiting;
    waiting = next->_nextToDestroy;
    next->destroy();
  }
  working = false;
}

}  // namespace lum
