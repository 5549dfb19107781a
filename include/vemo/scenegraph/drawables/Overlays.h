#pragma once

#include <vemo/scenegraph/attributes/AnnotationAttributes.h>
#include <vemo/scenegraph/attributes/ColorLookupTable.h>
#include <vemo/scenegraph/attributes/ImageAttributes.h>
#include <vemo/scenegraph/attributes/LegendAttributes.h>
#include <vemo/scenegraph/attributes/PlacementAttributes.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>
#include <vemo/scenegraph/drawables/Drawable.h>

namespace lum {

/// A drawable that stands at a position and is written or painted there. All
/// attributes are made when they are first asked for.
class VEMO_SCENEGRAPH_EXPORT PlacedDrawable : public Drawable {
 public:
  using Drawable::Drawable;

  PositionAttributes& getPositionAttributes() { return getAttributes<PositionAttributes>(); }

 protected:
  ~PlacedDrawable() override = default;
};

/// A text in the window or in the model.
class VEMO_SCENEGRAPH_EXPORT TextDrawable final : public PlacedDrawable {
  LUM_NODE(TextDrawable, PlacedDrawable)

  AnnotationAttributes& getAnnotationAttributes() { return getAttributes<AnnotationAttributes>(); }
  TextAttributes& getTextAttributes() { return getAttributes<TextAttributes>(); }
};

/// An image in the window or in the model. Its colour attributes give its
/// opacity.
class VEMO_SCENEGRAPH_EXPORT ImageDrawable final : public PlacedDrawable {
  LUM_NODE(ImageDrawable, PlacedDrawable)

  ImageAttributes& getImageAttributes() { return getAttributes<ImageAttributes>(); }
  ColorAttributes* getColorAttributes() override { return &getAttributes<ColorAttributes>(); }
};

/// What the colours of a lookup table mean: a colour bar with a title and
/// numbers. Its position is that of the lower left corner, as fractions of the
/// canvas's width and height.
class VEMO_SCENEGRAPH_EXPORT LegendDrawable final : public PlacedDrawable {
  LUM_NODE(LegendDrawable, PlacedDrawable)

  LegendAttributes& getLegendAttributes() { return getAttributes<LegendAttributes>(); }
  TextAttributes& getTextAttributes() { return getAttributes<TextAttributes>(); }

  ColorLookupTable& getColorLookupTable() { return _colorLookupTable.ensure(*this); }
  /// Null when there is none.
  ColorLookupTable* hasColorLookupTable() const { return _colorLookupTable.get(); }

  void listFields(FieldList& fields) override;

 private:
  Owned<ColorLookupTable> _colorLookupTable;
};

}  // namespace lum
