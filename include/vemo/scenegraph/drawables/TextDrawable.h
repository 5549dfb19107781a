#pragma once

#include <vemo/scenegraph/attributes/AnnotationAttributes.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>
#include <vemo/scenegraph/drawables/PlacedDrawable.h>

namespace lum {

/// A text in the window or in the model.
class VEMO_SCENEGRAPH_EXPORT TextDrawable final : public PlacedDrawable {
  LUM_NODE(TextDrawable, PlacedDrawable)

  AnnotationAttributes& getAnnotationAttributes() { return getAttributes<AnnotationAttributes>(); }
  TextAttributes& getTextAttributes() { return getAttributes<TextAttributes>(); }
};

}  // namespace lum
