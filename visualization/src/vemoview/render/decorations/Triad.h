#pragma once

#include "vemoview/render/draw/CameraBook.h"
#include "vemoview/render/resolve/Placements.h"

namespace lum {
class TriadDrawable;
}

namespace vemo {

class PropGroup;

/// Puts three labelled arrows into a group: x red, y green, z blue. A triad
/// that turns with a camera keeps to the renderer in the book that looks through
/// that camera, whatever turns it; with one that is not in the book, it shows
/// the directions that the camera's attributes give. `placement` is null for a
/// triad that stands where it says.
void addTriad(const lum::TriadDrawable& triad, const double* placement, const CameraBook& cameras,
              PropGroup& group);

}  // namespace vemo
