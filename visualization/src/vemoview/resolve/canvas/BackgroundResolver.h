#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/Background.h>

#include <optional>

namespace lum {
class SceneNode;
}

namespace vemo {

/// That of the hindmost canvas that has one; black without any. Those of other canvases are reported.
Background resolveBackground(const lum::SceneNode& scene);

/// Whether white stands out more than black against the background, at a place in fractions of
/// the window, or against the mean of its colours.
bool isDark(const Background& background, const std::optional<Vector<2, double>>& place);

}  // namespace vemo
