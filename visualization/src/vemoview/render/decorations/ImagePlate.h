#pragma once

namespace lum {
class ImageDrawable;
}

namespace vemo {

class PropGroup;

/// Puts an image into a group, unlit: in the window over all else that is
/// drawn there before it, or in the model, where it covers and is covered.
/// `placement` moves the latter; null moves nothing. An image whose pixels do
/// not fit its size, or whose axes span nothing, is not shown.
void addImage(const lum::ImageDrawable& image, const double* placement, PropGroup& group);

}  // namespace vemo
