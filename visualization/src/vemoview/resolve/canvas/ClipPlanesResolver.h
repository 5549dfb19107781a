#pragma once

#include <vemo/resolve/ClipPlane.h>

#include <vector>

namespace lum {
class ClipPlanesAttributes;
}

namespace vemo {

/// The usable clipping planes; null has none.
std::vector<ClipPlane> resolveClipPlanes(const lum::ClipPlanesAttributes* attributes);

}  // namespace vemo
