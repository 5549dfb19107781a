#pragma once

#include <vemo/scenegraph/Enumeration.h>

namespace lum {

/// What the position of a text or of an image is given in.
LUM_ENUM(CoordinateSpace,
         /// Fractions of the canvas's width and height from its lower left corner; z is not used.
         (WINDOW, "window"),
         /// Model coordinates.
         (MODEL, "model"))

}  // namespace lum
