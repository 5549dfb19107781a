#pragma once

#include "Errors.h"
#include "LibraryTurn.h"
#include <vemo/base/Progress.h>

#include <chrono>
#include <exception>
#include <pybind11/pybind11.h>
#include <string>
#include <utility>

namespace vemo::python {

/// Reports progress of the library to a Python function, and cancels the work if that
/// raises or returns False, or if Python has to handle a signal such as Control-C.
class ProgressBridge {
 public:
  /// @param callback may be None
  explicit ProgressBridge(pybind11::object callback) : _callback(std::move(callback)) {}

  /// To be called without the interpreter lock.
  bool report(double fraction);

  /// Throws what was raised while it reported.
  void throwRaised() const;

 private:
  using Clock = std::chrono::steady_clock;

  /// Getting the interpreter lock may take long when other threads use it.
  static constexpr Clock::duration BETWEEN_SIGNAL_CHECKS = std::chrono::milliseconds(20);

  bool isReportNeeded();
  bool ask(double fraction);

  pybind11::object _callback;
  Clock::time_point _lastCheck = Clock::now();
  std::exception_ptr _raised;
};

/// Returns work(ProgressReport), which is called in a turn of its own, with its exceptions
/// as Python's.
/// @param files for these
template <class Work>
auto runInTurn(const WorkFiles& files, pybind11::object progress, Work&& work) {
  ProgressBridge bridge(std::move(progress));
  const auto run = [&] {
    const LibraryTurn turn;
    return work([&bridge](double fraction) { return bridge.report(fraction); });
  };
  return withPythonErrors(files, [&] {
    try {
      auto result = run();
      bridge.throwRaised();
      return result;
    } catch (const Cancelled&) {
      bridge.throwRaised();
      if (areTurnsEnding()) {
        throw TurnsEnded();
      }
      throw;
    }
  });
}

}  // namespace vemo::python
