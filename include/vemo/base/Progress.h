#pragma once

#include <vemo/base/Export.h>

#include <cstdint>
#include <exception>
#include <functional>
#include <limits>

namespace vemo {

/// How a host follows a long piece of work: receives the share that is done, from 0
/// to 1, which never falls. 1 is reported once, when all of it is done. Returning false cancels
/// the work; exceptions do, too, and are passed on. Called by the thread that works.
using ProgressReport = std::function<bool(double fraction)>;

/// A report for a part of the work, from one share of it to another. Empty when the
/// given one is.
VEMO_BASE_EXPORT ProgressReport partOf(const ProgressReport& report, double begin, double end);

/// Thrown by work that its host cancelled. Nothing is left half written.
class VEMO_BASE_EXPORT Cancelled : public std::exception {
 public:
  Cancelled() = default;
  Cancelled(const Cancelled&) = default;
  Cancelled& operator=(const Cancelled&) = default;
  ~Cancelled() override;

  const char* what() const noexcept override;
};

/// Turns units of work into reports. The work has phases, one after the other; each ends
/// at a share of the whole, and counts units of its own. A report costs the host
/// time, so there are at most some hundreds of them.
class VEMO_BASE_EXPORT ProgressMeter {
 public:
  /// An empty function is accepted: nothing is reported then.
  explicit ProgressMeter(ProgressReport report = {});

  /// Ends the present phase and starts one that ends at `end`. All members that
  /// report throw Cancelled when the host says so.
  void startPhase(double end, std::uint64_t units);

  /// Units beyond those of the phase are ignored.
  void advance(std::uint64_t units = 1) {
    _done += units;
    if (_done >= _nextReport) {
      reportDone();
    }
  }

  /// All of the work is done. Nothing can be cancelled any more: the answer is ignored.
  void finish();

 private:
  static constexpr std::uint64_t NEVER = std::numeric_limits<std::uint64_t>::max();

  void reportDone();

  ProgressReport _report;
  double _phaseBegin = 0;
  double _phaseEnd = 0;
  std::uint64_t _units = 0;
  std::uint64_t _done = 0;
  std::uint64_t _nextReport = NEVER;
};

}  // namespace vemo
