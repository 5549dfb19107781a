#include "LibraryTurn.h"

#include <atomic>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace vemo::python {

namespace {

/// Who has the turn, and what waits for release.
class Turns {
 public:
  /// Never destroyed: Python frees objects until the process ends.
  static Turns& getSingleton() {
    static Turns& singleton = *new Turns;
    return singleton;
  }

  bool isMine() const { return _holder == std::this_thread::get_id(); }

  void take() {
    _turn.lock();
    _holder = std::this_thread::get_id();
  }

  void end() {
    _holder = std::thread::id();
    _turn.unlock();
    releaseAll();
  }

  void add(lum::PtrBase object) {
    const std::lock_guard lock(_waitingMutex);
    _waiting.push_back(std::move(object));
  }

  /// Unless somebody has the turn, who does it afterwards.
  void releaseAll() {
    while (isAnyWaiting() && !isMine() && _turn.try_lock()) {
      takeWaiting().clear();
      _turn.unlock();
    }
  }

 private:
  Turns() = default;

  bool isAnyWaiting() {
    const std::lock_guard lock(_waitingMutex);
    return !_waiting.empty();
  }

  std::vector<lum::PtrBase> takeWaiting() {
    const std::lock_guard lock(_waitingMutex);
    return std::exchange(_waiting, {});
  }

  std::mutex _turn;
  std::atomic<std::thread::id> _holder;
  std::mutex _waitingMutex;
  std::vector<lum::PtrBase> _waiting;
};

/// Comes before the interpreter lock is released.
void requireOutsideTurn() {
  if (Turns::getSingleton().isMine()) {
    throw std::runtime_error(
        "vemoscene cannot be called from a progress callback or an observer of the importer");
  }
}

}  // namespace

LibraryTurn::LibraryTurn() : _released((requireOutsideTurn(), false)) {
  Turns::getSingleton().take();
}

LibraryTurn::~LibraryTurn() {
  Turns::getSingleton().end();
}

void releaseInTurn(lum::PtrBase object) {
  Turns& turns = Turns::getSingleton();
  turns.add(std::move(object));
  turns.releaseAll();
}

}  // namespace vemo::python
