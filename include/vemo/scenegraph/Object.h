#pragma once

#include <vemo/scenegraph/Export.h>

#include <atomic>
#include <memory>

namespace lum {

/// Root of everything in the scene graph: reference counted, held by Ptr.
/// A new object has no references; the first Ptr that takes it owns it.
class VEMO_SCENEGRAPH_EXPORT Object {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  void addReference() const noexcept { _references.fetch_add(1, std::memory_order_relaxed); }

  /// Releases one reference. The last one destroys the object and what only it
  /// held: one after the other, never nested, so that a
  /// chain of any length needs little stack.
  void release() const noexcept;

  /// A cell with this object's address, or null after its destruction.
  std::shared_ptr<Object*> getWeakCell();

 protected:
  Object() = default;
  virtual ~Object();

  /// Called when the last reference goes; deletes the object.
  virtual void destroy() noexcept;

 private:
  static void destroyLater(Object* object) noexcept;

  mutable std::atomic<int> _references{0};
  Object* _nextToDestroy = nullptr;
  std::shared_ptr<Object*> _weakCell;
};

}  // namespace lum
