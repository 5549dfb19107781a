#include "LibraryTurn.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

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

  /// Returns whether the thread has the turn.
  bool take() {
    _turn.lock();
    if (isOver()) {
      _turn.unlock();
      return false;
    }
    _holder = std::this_thread::get_id();
    return true;
  }

  void end() {
    _holder = std::thread::id();
    _turn.unlock();
    releaseAll();
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

  void noteTakenForFork() { _isTakenForFork = true; }
  bool wasTakenForFork() { return std::exchange(_isTakenForFork, false); }

  /// The other threads have not been copied.
  void stayAlone() { _stays = 1; }

  void add(lum::PtrBase object) {
    auto* const added = new Waiting{std::move(object), _waiting};
    while (!_waiting.compare_exchange_weak(added->next, added)) {
    }
  }

  /// Unless somebody has the turn, who does it afterwards.
  void releaseAll() {
    while (_waiting != nullptr && !isMine() && _turn.try_lock()) {
      release(_waiting.exchange(nullptr));
      _turn.unlock();
    }
  }

 private:
  Turns() = default;

  struct Waiting {
    lum::PtrBase object;
    Waiting* next;
  };

  static void release(Waiting* first) {
    while (first != nullptr) {
      const std::unique_ptr<Waiting> released(first);
      first = released->next;
    }
  }

  std::mutex _turn;
  std::atomic<std::thread::id> _holder;
  /// Without a lock, which a thread that is not copied by a fork might have.
  std::atomic<Waiting*> _waiting = nullptr;

  bool _isTakenForFork = false;

  std::atomic<std::thread::id> _last;
  std::mutex _staysMutex;
  std::condition_variable _left;
  int _stays = 0;
};

/// Comes before the interpreter lock is released.
void requireOutsideTurn() {
  if (areTurnsEnding()) {
    throw TurnsEnded();
  }
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
  if (!Turns::getSingleton().take()) {
    throw TurnsEnded();
  }
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
  if (turns.isMine()) {
    return;
  }
  turns.enter();
  bool isTaken = false;
  {
    const pybind11::gil_scoped_release released;
    isTaken = turns.take();
  }
  isTaken ? turns.noteTakenForFork() : turns.leave();
}

void letGoTurn() {
  Turns& turns = Turns::getSingleton();
  if (turns.wasTakenForFork()) {
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
