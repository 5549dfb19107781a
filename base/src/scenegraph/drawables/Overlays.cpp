#include <vemo/scenegraph/drawables/Overlays.h>

namespace lum {

void LegendDrawable::listFields(FieldList& fields) {
  Superclass::listFields(fields);
  fields.add("colorLookupTable", _colorLookupTable);
}

}  // namespace lum
