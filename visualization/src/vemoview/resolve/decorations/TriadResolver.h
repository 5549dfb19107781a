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

class FontResolver;

/// The cameras of canvases, to the canvases' indices in the resolved scene.
using CameraIndices = std::map<const lum::CameraAttributes*, std::size_t>;

/// Nothing without a usable position.
std::optional<TriadDecoration> resolveTriad(const lum::TriadDrawable& triad, const CameraIndices& cameras,
                                            FontResolver& fonts);

/// Puts a triad where an instance with a transform is.
void transformTriad(TriadDecoration& triad, const InstanceTransform& transform);

}  // namespace vemo
