#pragma once

#include <vemo/resolve/Decoration.h>

#include <cstddef>
#include <map>
#include <optional>

namespace lum {
class CameraAttributes;
class TriadDrawable;
}  // namespace lum

namespace vemo {

/// The cameras of canvases, to the canvases' indices in the resolved scene.
using CameraIndices = std::map<const lum::CameraAttributes*, std::size_t>;

/// The instance of a triad with a transform; nothing without a usable position.
std::optional<TriadDecoration> resolveTriad(const lum::TriadDrawable& triad,
                                            const InstanceTransform* transform, const CameraIndices& cameras);

}  // namespace vemo
