#include <vemo/scenegraph/drawables/TriadDrawable.h>

namespace lum {

void TriadDrawable::listFields(FieldList& fields) {
  Superclass::listFields(fields);
  fields.add("cameraAttributes", _cameraAttributes);
}

}  // namespace lum
