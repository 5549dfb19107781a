#include <vemo/scenegraph/drawables/Drawable.h>

namespace lum {

// The attributes come first: what a drawable looks like is told before what
// it is made of.
void Drawable::listFields(FieldList& fields) {
  fields.add("attributes", _attributes);
  CollectionNode::listFields(fields);
}

}  // namespace lum
