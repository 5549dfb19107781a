#pragma once

#include <vemo/scenegraph/attributes/LegendAttributes.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/drawables/PositionedDrawable.h>

namespace lum {

/// What the colours of a lookup table mean: a colour bar with a title and
/// numbers. Its position is that of the lower left corner, as fractions of the
/// canvas's width and height.
class VEMO_SCENEGRAPH_EXPORT LegendDrawable final : public PositionedDrawable {
  LUM_NODE(LegendDrawable, PositionedDrawable)
  LUM_OWNED(ColorLookupTable, ColorLookupTable, _colorLookupTable)

 public:
  LegendAttributes& getLegendAttributes() { return getAttributes<LegendAttributes>(); }
  TextAttributes& getTextAttributes() { return getAttributes<TextAttributes>(); }
};

}  // namespace lum
