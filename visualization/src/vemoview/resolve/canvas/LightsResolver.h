#pragma once

#include <vemo/resolve/CanvasLights.h>

namespace lum {
class LightingAttributes;
}

namespace vemo {

/// The usable lights; none for null.
CanvasLights resolveLights(const lum::LightingAttributes* lighting);

}  // namespace vemo
