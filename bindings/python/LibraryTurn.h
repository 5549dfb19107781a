#pragma once

#include <vemo/scenegraph/Ptr.h>

#include <pybind11/pybind11.h>

namespace vemo::python {

/// The libraries take no locks and are for one thread at a time. During the lifetime of
/// its turn a thread is the only one that works in them. The interpreter lock is
/// released meanwhile, and not held while waiting for the turn, so that the thread that
/// has it can always get the interpreter lock.
///
/// Graphs that Python holds do not change, so reading them takes no turn.
class LibraryTurn {
 public:
  /// Throws std::runtime_error in a function that the thread's own turn calls, such as
  /// a progress callback or an observer of the importer.
  LibraryTurn();
  ~LibraryTurn();
  LibraryTurn(const LibraryTurn&) = delete;
  LibraryTurn& operator=(const LibraryTurn&) = delete;

 private:
  pybind11::gil_scoped_release _released;
};

/// Releases an object of the scene graph in a turn: at once if none is taken, else when
/// that one ends. Never waits, so that Python may free objects anywhere, and in any thread.
void releaseInTurn(lum::PtrBase object);

}  // namespace vemo::python
