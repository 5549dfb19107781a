#pragma once

#include <vemo/resolve/CanvasCamera.h>

namespace lum {
class CameraAttributes;
}

namespace vemo {

/// The usable part of a camera. There is no viewpoint for null, a camera that
/// was never changed, or one that is at its own focal point; a view-up that is
/// parallel to the direction of view is replaced.
CanvasCamera resolveCamera(const lum::CameraAttributes* camera);

/// The unit vector of an upward direction that is not parallel to a direction
/// of view (a unit vector); y or z where the one given is, or is not usable.
Vector3 usableViewUp(const Vector3& viewUp, const Vector3& forward);

}  // namespace vemo
