#include "vemoview/resolve/values/LegendTicks.h"

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>

namespace vemo {

namespace {

/// Powers of ten within the range, evenly spaced, at most `count`.
std::vector<LegendTick> powersOfTen(double low, double high, int count) {
  constexpr double ROUNDING = 1e-9;
  const auto first = static_cast<int>(std::ceil(low - ROUNDING));
  const auto last = static_cast<int>(std::floor(high + ROUNDING));
  const int step = count > 1 ? std::max(1, (last - first + count - 2) / (count - 1)) : last - first + 1;
  std::vector<LegendTick> ticks;
  for (int power = first; power <= last; power += std::max(step, 1)) {
    ticks.push_back({std::clamp((power - low) / (high - low), 0.0, 1.0), std::pow(10.0, power)});
  }
  return ticks;
}

/// During its lifetime, this thread has the locale "C", whatever the process has: hosts set the
/// user's, in which numbers may have commas.
class WithClassicLocale {
 public:
  WithClassicLocale() = default;
  WithClassicLocale(const WithClassicLocale&) = delete;
  WithClassicLocale& operator=(const WithClassicLocale&) = delete;
  ~WithClassicLocale() { uselocale(_before); }

 private:
  static locale_t classic() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
  }

  locale_t _before = uselocale(classic());
};

std::string format(const std::string& pattern, double value) {
  const WithClassicLocale classic;
  std::string text(static_cast<std::size_t>(std::snprintf(nullptr, 0, pattern.c_str(), value)), '\0');
  std::snprintf(text.data(), text.size() + 1, pattern.c_str(), value);
  return text;
}

std::vector<std::string> formatAll(const std::vector<LegendTick>& ticks, const std::string& pattern) {
  std::vector<std::string> labels;
  labels.reserve(ticks.size());
  for (const LegendTick& tick : ticks) {
    labels.push_back(format(pattern, tick.value));
  }
  return labels;
}

}  // namespace

std::vector<LegendTick> makeLegendTicks(const Vector<2, double>& range, bool isLog, int count) {
  std::vector<LegendTick> ticks;
  if (count <= 0) {
    return ticks;
  }
  if (!(range[0] < range[1])) {
    return {{0.5, range[0]}};
  }
  const double low = isLog ? std::log10(range[0]) : range[0];
  const double high = isLog ? std::log10(range[1]) : range[1];
  if (isLog && high > low) {
    ticks = powersOfTen(low, high, count);
    if (ticks.size() >= 2) {
      return ticks;
    }
    ticks.clear();
  }
  for (int i = 0; i < count; ++i) {
    const double place = count == 1 ? 0.0 : static_cast<double>(i) / (count - 1);
    const double along = (1.0 - place) * low + place * high;
    // Rounding leaves something of a zero.
    const double value = std::abs(along) < 1e-12 * (high / 2 - low / 2) ? 0.0 : along;
    ticks.push_back({place, i == 0           ? range[0]
                            : i == count - 1 ? range[1]
                            : isLog          ? std::pow(10.0, along)
                                             : value});
  }
  return ticks;
}

std::vector<std::string> labelsOf(const std::vector<LegendTick>& ticks, const std::string& format) {
  if (!format.empty()) {
    return formatAll(ticks, format);
  }
  constexpr int FEWEST_DIGITS = 4;
  std::vector<std::string> labels;
  for (int digits = FEWEST_DIGITS; digits <= std::numeric_limits<double>::max_digits10; ++digits) {
    labels = formatAll(ticks, "%." + std::to_string(digits) + 'g');
    if (!areAnyAlike(ticks, labels)) {
      break;
    }
  }
  return labels;
}

bool areAnyAlike(const std::vector<LegendTick>& ticks, const std::vector<std::string>& labels) {
  for (std::size_t i = 1; i < ticks.size(); ++i) {
    if (labels[i] == labels[i - 1] && ticks[i].value != ticks[i - 1].value) {
      return true;
    }
  }
  return false;
}

}  // namespace vemo
