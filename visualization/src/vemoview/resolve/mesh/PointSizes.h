#pragma once

#include <vemo/resolve/Appearance.h>

namespace lum {
class PolyDataNode;
}

namespace vemo {

class ViewVolume;

/// The diameter of points in a picture of the usual size.
/// @param center of the mesh, which decides for sizes in model units
double pointPixels(const Appearance& points, const ViewVolume& view, const Vector3& center);

/// Reports points of a size in pixels that OpenGL may not draw.
void reportIfTooLarge(const lum::PolyDataNode& points, double pixels);

}  // namespace vemo
