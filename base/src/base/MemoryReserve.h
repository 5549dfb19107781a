#pragma once

#include <vemo/base/Export.h>

#include <new>

namespace vemo::OS {

/// Sets memory aside for the time when there is no more. The first allocation that finds
/// none gets some of it, and tries again: it may be one in a destructor, as those of
/// VTK's objects have them, from where an exception would end the process. The next one
/// throws std::bad_alloc, and the rest is there for destructors and for the message:
/// while an exception is on its way, no allocation throws before all is used up.
///
/// A failure that its caller handles spends it, too: what follows has none.
///
/// The handler for allocations that fail (`std::set_new_handler`) is the process's:
/// where there is one already, nothing is set aside.
class VEMO_BASE_EXPORT MemoryReserve {
 public:
  /// Throws std::bad_alloc.
  MemoryReserve();
  ~MemoryReserve();
  MemoryReserve(const MemoryReserve&) = delete;
  MemoryReserve& operator=(const MemoryReserve&) = delete;

  /// Until this object is destroyed, nothing throws before all is used up: destructors
  /// follow.
  void useForDestructors();

 private:
  bool _isInstalled;
};

/// For allocations that do not call the handler, as those of C libraries: throws
/// std::bad_alloc, and gives destructors what was set aside for them.
[[noreturn]] VEMO_BASE_EXPORT void throwNoMemory();

/// For destructors and functions called at exit, which no exception may leave: calls the
/// function, which stops where there is no memory.
template <class Function>
void stopWithoutMemory(Function&& function) noexcept {
  try {
    function();
  } catch (const std::bad_alloc&) {
    // What is left undone is not worth the process.
  }
}

}  // namespace vemo::OS
