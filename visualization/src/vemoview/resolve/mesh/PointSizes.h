#pragma once

namespace lum {
class PolyDataNode;
}

namespace vemo {

class ViewVolume;

/// Down to which depth points with a size in model units are larger in a picture of the usual
/// size than OpenGL may draw them: 0 for none, infinity for all.
double depthOfTooLarge(double size, const ViewVolume& view);

/// Reports points that OpenGL may not draw in their size.
void reportTooLarge(const lum::PolyDataNode& points);
/// @param pixels their diameter
void reportIfTooLarge(const lum::PolyDataNode& points, double pixels);

}  // namespace vemo
