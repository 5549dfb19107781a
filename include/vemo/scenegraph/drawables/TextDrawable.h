#pragma once

#include <vemo/scenegraph/attributes/AnnotationAttributes.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>
#include <vemo/scenegraph/drawables/PositionedDrawable.h>

namespace lum {

/// A text in the window or in the model.
class VEMO_SCENEGRAPH_EXPORT TextDrawable final : public PositionedDrawable {
  LUM_NODE(TextDrawable, PositionedDrawable)

  AnnotationAttributes& getAnnotationAttributes() { return getAttributes<AnnotationAttributes>(); }
  TextAttributes& getTextAttributes() { return getAttributes<TextAttributes>(); }
};

}  // namespace lum
