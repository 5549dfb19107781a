#include "LibraryTurn.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
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
    if (isOver()) {
      _turn.unlock();
      sleep();
    }
    _holder = std::this_thread::get_id();
  }

  void end() {
    _holder = std::thread::id();
    _turn.unlock();
    releaseAll();
    if (isOver()) {
      sleep();
    }
  }

  /// Whether another thread ends the interpreter: this one still has its turns, such as in Python's own
  /// functions for the exit.
  bool isOver() const {
    const std::thread::id last = _last;
    return last != std::thread::id() && last != std::this_thread::get_id();
  }

  void letNobodyElseIn() { _last = std::this_thread::get_id(); }

  void enter() {
    const std::lock_guard lock(_staysMutex);
    ++_stays;
  }

  void leave() {
    const std::lock_guard lock(_staysMutex);
    --_stays;
    _left.notify_all();
  }

  /// Returns whether all threads have left.
  bool waitForAll(std::chrono::milliseconds time) {
    std::unique_lock lock(_staysMutex);
    return _left.wait_for(lock, time, [this] { return _stays == 0; });
  }

  /// What another thread that is about to leave its turn may hold, too.
  void holdForFork(bool isTurnTaken) {
    _waitingMutex.lock();
    _isTakenForFork = isTurnTaken;
  }

  /// Returns whether the turn was taken for the fork.
  bool letGoAfterFork() {
    _waitingMutex.unlock();
    return std::exchange(_isTakenForFork, false);
  }

  /// The other threads have not been copied.
  void stayAlone() { _stays = 1; }

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

  /// Until the process ends.
  [[noreturn]] void sleep() {
    leave();
    while (true) {
      std::this_thread::sleep_for(std::chrono::hours(1));
    }
  }

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

  bool _isTakenForFork = false;

  std::atomic<std::thread::id> _last;
  std::mutex _staysMutex;
  std::condition_variable _left;
  int _stays = 0;
};

/// Comes before the interpreter lock is released.
void requireOutsideTurn() {
  if (Turns::getSingleton().isMine()) {
    throw std::runtime_error(
        "vemoscene cannot be called from a progress callback or an observer of the importer");
  }
}

}  // namespace

LibraryTurn::Stay::Stay() {
  Turns::getSingleton().enter();
}

LibraryTurn::Stay::~Stay() {
  Turns::getSingleton().leave();
}

LibraryTurn::LibraryTurn() : _released((requireOutsideTurn(), false)) {
  Turns::getSingleton().take();
}

LibraryTurn::~LibraryTurn() {
  Turns::getSingleton().end();
}

void endTurns() {
  constexpr std::chrono::milliseconds BETWEEN_SIGNAL_CHECKS(50);
  Turns& turns = Turns::getSingleton();
  if (turns.isMine()) {
    return;
  }
  turns.letNobodyElseIn();
  const auto waitForAll = [&] {
    const pybind11::gil_scoped_release released;
    return turns.waitForAll(BETWEEN_SIGNAL_CHECKS);
  };
  while (!waitForAll()) {
    if (PyErr_CheckSignals() != 0) {
      throw pybind11::error_already_set();
    }
  }
}

bool areTurnsEnding() {
  return Turns::getSingleton().isOver();
}

void holdTurn() {
  Turns& turns = Turns::getSingleton();
  const bool isOwn = turns.isMine();
  if (!isOwn) {
    turns.enter();
    const pybind11::gil_scoped_release released;
    turns.take();
  }
  turns.holdForFork(!isOwn);
}

void letGoTurn() {
  Turns& turns = Turns::getSingleton();
  if (turns.letGoAfterFork()) {
    turns.end();
    turns.leave();
  }
}

void letGoTurnInChild() {
  Turns::getSingleton().stayAlone();
  letGoTurn();
}

void releaseInTurn(lum::PtrBase object) {
  Turns& turns = Turns::getSingleton();
  turns.add(std::move(object));
  turns.releaseAll();
}

}  // namespace vemo::python
