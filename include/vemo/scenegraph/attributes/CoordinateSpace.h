#pragma once

#include <vemo/scenegraph/Enumeration.h>

namespace lum {

/// The coordinates that positions of texts and images are in.
LUM_ENUM(CoordinateSpace,
         /// Fractions of the canvas's width and height from its lower left corner; z is not used.
         (WINDOW, "window"),
         /// Model coordinates.
         (MODEL, "model"))

}  // namespace lum
