#pragma once

#include <vemo/base/SameBits.h>
#include <vemo/scenegraph/inspect/Compare.h>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>

namespace lum {

/// The tolerance at which two numbers would be equal; infinite if none is enough.
inline double deviationOf(double left, double right) {
  if (left == right || (std::isnan(left) && std::isnan(right))) {
    return 0.0;
  }
  if (!std::isfinite(left) || !std::isfinite(right)) {
    return std::numeric_limits<double>::infinity();
  }
  const double scale = std::max({1.0, std::abs(left), std::abs(right)});
  const double distance = std::abs(left - right);
  return std::isfinite(distance) ? distance / scale : std::abs(left / scale - right / scale);
}

/// How far whole numbers differ, of which a double cannot tell all apart.
template <std::integral T>
double deviationOf(T left, T right) {
  const auto [least, greatest] = std::minmax(left, right);
  const auto distance = static_cast<std::uint64_t>(greatest) - static_cast<std::uint64_t>(least);
  const double scale =
      std::max({1.0, std::abs(static_cast<double>(left)), std::abs(static_cast<double>(right))});
  return static_cast<double>(distance) / scale;
}

template <class T>
bool areEqual(T left, T right, const ComparisonRules& rules) {
  if constexpr (std::floating_point<T>) {
    return rules.isBitwise ? vemo::sameBits(left, right) : deviationOf(left, right) <= rules.tolerance;
  } else {
    return left == right;
  }
}

/// How far two lists of numbers of the same length differ; nothing when they are
/// equal.
template <class T>
std::optional<Difference::Extent> findExtent(std::span<const T> left, std::span<const T> right,
                                             const ComparisonRules& rules) {
  Difference::Extent extent;
  double most = -1.0;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (areEqual(left[i], right[i], rules)) {
      continue;
    }
    ++extent.count;
    const double deviation = deviationOf(left[i], right[i]);
    if (deviation > most) {
      most = deviation;
      extent.index = static_cast<std::int64_t>(i);
    }
  }
  if (extent.count == 0) {
    return std::nullopt;
  }
  extent.total = static_cast<std::int64_t>(left.size());
  // No tolerance applies to whole numbers.
  extent.deviation = std::integral<T> ? std::numeric_limits<double>::infinity() : most;
  return extent;
}

}  // namespace lum
