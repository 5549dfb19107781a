#include <vemo/scenegraph/drawables/Drawable.h>

namespace lum {

// By hand: the attributes come before the nodes of the base class.
void Drawable::listFields(FieldList& fields) {
  fields.add("attributes", &_attributes);
  CollectionNode::listFields(fields);
}

}  // namespace lum
