#pragma once

#include <vemo/resolve/CanvasLights.h>

namespace lum {
class LightingAttributes;
}

namespace vemo {

/// The usable lights, and a weak headlight that fills their shadows. Without
/// any light (null has none) the headlight is white.
CanvasLights resolveLights(const lum::LightingAttributes* lighting);

}  // namespace vemo
