#pragma once

#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/Export.h>

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

/// What the size of a triad depends on, in pixels.
struct TriadRoom {
  double windowHeight = 0.0;
  Vector<2, double> canvas;
  /// Of a unit of the model where the triad is; 0 at the viewer and behind.
  double perUnit = 0.0;
};

struct TriadSize {
  /// In pixels.
  double labelHeight = 0.0;
  /// In units of the model.
  double axisLength = 0.0;
};

/// How large a triad is drawn. One that turns with a camera is smaller in a canvas that is higher than
/// wide, which has to hold all of it, however it turns.
VEMO_RESOLVE_EXPORT TriadSize drawnSize(const TriadDecoration& triad, const TriadRoom& room);

/// Puts a triad where an instance with a transform is.
void transformTriad(TriadDecoration& triad, const InstanceTransform& transform);

}  // namespace vemo
