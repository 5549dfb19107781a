#pragma once

#include <vemo/resolve/Background.h>

namespace lum {
class SceneCanvas;
}

namespace vemo {

/// The background that a canvas has; black for null, or without one.
Background resolveBackground(const lum::SceneCanvas* canvas);

}  // namespace vemo
