#pragma once

#include <vemo/resolve/Background.h>

namespace lum {
class SceneCanvas;
}

namespace vemo {

/// The background that a canvas has; black for null, or without one.
Background resolveBackground(const lum::SceneCanvas* canvas);

/// Whether white stands out more than black against the mean of the colours.
bool isDark(const Background& background);

}  // namespace vemo
