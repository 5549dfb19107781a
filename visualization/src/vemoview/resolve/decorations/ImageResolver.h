#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/Decoration.h>

#include <array>
#include <optional>

namespace lum {
class ImageDrawable;
}

namespace vemo {

/// Nothing for an image whose pixels do not fit its size, whose axes are
/// parallel, or that is transparent.
std::optional<ImageDecoration> resolveImage(const lum::ImageDrawable& image);

/// In the model or in the window, one after the other around the image.
std::array<Vector3, 4> cornersOf(const ImageDecoration& image);

/// Around its four corners.
Box boundsOf(const ImageDecoration& image);

}  // namespace vemo
