#include "ProgressBridge.h"

namespace py = pybind11;

namespace vemo::python {

bool ProgressBridge::report(double fraction) {
  if (_raised || areTurnsEnding()) {
    return false;
  }
  if (!isReportNeeded()) {
    return true;
  }
  const py::gil_scoped_acquire interpreter;
  // Not through the library, which may have other plans for exceptions.
  try {
    return ask(fraction);
  } catch (...) {
    _raised = std::current_exception();
    return false;
  }
}

bool ProgressBridge::isReportNeeded() {
  const Clock::time_point now = Clock::now();
  if (_callback.is_none() && now - _lastCheck < BETWEEN_SIGNAL_CHECKS) {
    return false;
  }
  _lastCheck = now;
  return true;
}

bool ProgressBridge::ask(double fraction) {
  if (PyErr_CheckSignals() != 0) {
    throw py::error_already_set();
  }
  return _callback.is_none() || !_callback(fraction).is(py::bool_(false));
}

void ProgressBridge::throwRaised() const {
  if (_raised) {
    std::rethrow_exception(_raised);
  }
}

}  // namespace vemo::python
