#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/Decoration.h>

#include <optional>

namespace lum {
class ImageDrawable;
}

namespace vemo {

/// Nothing for an image whose pixels do not fit its size, whose axes are
/// parallel, or that is transparent.
std::optional<ImageDecoration> resolveImage(const lum::ImageDrawable& image);

/// Around its four corners, in the model or in the window.
Box boundsOf(const ImageDecoration& image);

}  // namespace vemo
