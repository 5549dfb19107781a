#pragma once

#include "scenegraph/attributes/CameraLimits.h"
#include "scenegraph/attributes/PixelLimits.h"
#include <vemo/base/Vector.h>

#include <algorithm>
#include <cmath>

namespace vemo {

/// The usable values closest to those of attributes, which may be anything.

/// Whether a point can be drawn. Points farther away are often placeholders for missing
/// ones; with them, nothing of a scene would be visible. False for NaN, too.
inline bool isInReach(const Vector3& point) {
  return std::ranges::all_of(point, [](double value) { return std::abs(value) <= lum::GREATEST_COORDINATE; });
}

/// In 0..1; `fallback` for a value that is not finite.
inline double unitValue(double value, double fallback) {
  return std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : fallback;
}

inline Vector3 usableColor(const Vector3& color) {
  return {unitValue(color[0], 0.0), unitValue(color[1], 0.0), unitValue(color[2], 0.0)};
}

/// The size of a point or a line.
inline double usablePixels(double value) {
  return std::isfinite(value) && value >= lum::LEAST_PIXELS ? std::min(value, lum::GREATEST_PIXELS) : 1.0;
}

}  // namespace vemo
