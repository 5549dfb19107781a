#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/Background.h>

#include <optional>

namespace lum {
class SceneCanvas;
}

namespace vemo {

/// The background that a canvas has; black for null, or without one.
Background resolveBackground(const lum::SceneCanvas* canvas);

/// Whether white stands out more than black against the background, at a place in fractions of
/// the window, or against the mean of its colours.
bool isDark(const Background& background, const std::optional<Vector<2, double>>& place);

}  // namespace vemo
