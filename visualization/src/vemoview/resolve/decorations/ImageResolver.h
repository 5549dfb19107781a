#pragma once

#include <vemo/resolve/Decoration.h>

#include <optional>

namespace lum {
class ImageDrawable;
}

namespace vemo {

/// The instance of an image with a transform, which an image in the window
/// ignores. Nothing for an image whose pixels do not fit its size, whose axes
/// are parallel, or that is transparent.
std::optional<ImageDecoration> resolveImage(const lum::ImageDrawable& image,
                                            const InstanceTransform* transform);

}  // namespace vemo
