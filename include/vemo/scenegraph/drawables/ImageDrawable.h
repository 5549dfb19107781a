#pragma once

#include <vemo/scenegraph/attributes/ImageAttributes.h>
#include <vemo/scenegraph/drawables/PositionedDrawable.h>

namespace lum {

/// An image in the window or in the model. Its colour attributes give its
/// opacity.
class VEMO_SCENEGRAPH_EXPORT ImageDrawable final : public PositionedDrawable {
  LUM_NODE(ImageDrawable, PositionedDrawable)

  ImageAttributes& getImageAttributes() { return getAttributes<ImageAttributes>(); }
  ColorAttributes* getColorAttributes() override { return &getAttributes<ColorAttributes>(); }
};

}  // namespace lum
