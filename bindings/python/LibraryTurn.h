#pragma once

#include <vemo/scenegraph/Ptr.h>

#include <pybind11/pybind11.h>

namespace vemo::python {

/// The libraries take no locks and are for one thread at a time. During the lifetime of
/// its turn a thread is the only one that works in them. The interpreter lock is
/// released meanwhile, and not held while waiting for the turn, so that the thread that
/// has it can always get the interpreter lock.
///
/// Once the interpreter ends, a (daemon) thread must not ask for its lock in a turn: Python would end the
/// thread in the middle of C++ code, and with it the process. See endTurns().
///
/// Graphs that Python holds do not change, so reading them takes no turn.
class LibraryTurn {
 public:
  /// Throws std::runtime_error in a function that the thread's own turn calls, such as
  /// a progress callback or an observer of the importer, and TurnsEnded.
  LibraryTurn();
  ~LibraryTurn();
  LibraryTurn(const LibraryTurn&) = delete;
  LibraryTurn& operator=(const LibraryTurn&) = delete;

 private:
  /// From releasing the interpreter lock until it is held again.
  struct Stay {
    Stay();
    ~Stay();
    Stay(const Stay&) = delete;
    Stay& operator=(const Stay&) = delete;
  };

  Stay _stay;
  pybind11::gil_scoped_release _released;
};

/// There are no turns any more, since Python ends. SystemExit for the thread, which ends it silently.
struct TurnsEnded {};

/// For the end of the interpreter: lets no other thread begin a turn, has running work cancelled, and waits
/// until no thread is in one.
void endTurns();

/// Whether running work is to be cancelled, and the thread to end.
bool areTurnsEnding();

/// Around a fork, which copies only the thread that forks: it holds the turn meanwhile, so that the copy
/// finds nothing half done. In a turn of its own it has it anyway.
void holdTurn();
void letGoTurn();
void letGoTurnInChild();

/// Releases an object of the scene graph in a turn: at once if none is taken, else when
/// that one ends. Never waits, so that Python may free objects anywhere, and in any thread.
void releaseInTurn(lum::PtrBase object);

}  // namespace vemo::python
