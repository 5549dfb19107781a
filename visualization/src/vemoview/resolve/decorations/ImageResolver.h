#pragma once

#include <vemo/resolve/Decoration.h>

#include <optional>

namespace lum {
class ImageDrawable;
}

namespace vemo {

/// Nothing for an image whose pixels do not fit its size, whose axes are
/// parallel, or that is transparent.
std::optional<ImageDecoration> resolveImage(const lum::ImageDrawable& image);

}  // namespace vemo
