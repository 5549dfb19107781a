#include <vemo/base/Progress.h>

#include <algorithm>
#include <utility>

namespace vemo {

namespace {

constexpr std::uint64_t REPORTS_PER_PHASE = 100;

/// Units are estimates, and the end of the work is more than the last of them.
constexpr double MOST = 0.99;

}  // namespace

ProgressReport partOf(const ProgressReport& report, double begin, double end) {
  if (!report) {
    return {};
  }
  return [=](double fraction) { return report(begin + (fraction * (end - begin))); };
}

// Here, so that all libraries share one type information.
Cancelled::~Cancelled() = default;

const char* Cancelled::what() const noexcept {
  return "Cancelled";
}

ProgressMeter::ProgressMeter(ProgressReport report) : _report(std::move(report)) {}

void ProgressMeter::startPhase(double end, std::uint64_t units) {
  _phaseBegin = _phaseEnd;
  _phaseEnd = end;
  _units = std::max<std::uint64_t>(units, 1);
  _done = 0;
  if (_report) {
    _nextReport = 0;
    reportDone();
  }
}

void ProgressMeter::reportDone() {
  const std::uint64_t done = std::min(_done, _units);
  _nextReport = done < _units ? done + std::max<std::uint64_t>(_units / REPORTS_PER_PHASE, 1) : NEVER;
  const double share = static_cast<double>(done) / static_cast<double>(_units);
  if (!_report(std::min(_phaseBegin + (share * (_phaseEnd - _phaseBegin)), MOST))) {
    throw Cancelled();
  }
}

void ProgressMeter::finish() {
  _nextReport = NEVER;
  if (_report) {
    _report(1);
  }
}

}  // namespace vemo
