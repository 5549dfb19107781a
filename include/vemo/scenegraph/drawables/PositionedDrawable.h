#pragma once

#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/drawables/Drawable.h>

namespace lum {

/// A text, image or legend at a position. All attributes are created on first
/// access.
class VEMO_SCENEGRAPH_EXPORT PositionedDrawable : public Drawable {
 public:
  using Drawable::Drawable;

  PositionAttributes& getPositionAttributes() { return getAttributes<PositionAttributes>(); }

 protected:
  ~PositionedDrawable() override = default;
};

}  // namespace lum
