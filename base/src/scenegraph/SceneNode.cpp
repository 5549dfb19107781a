#include <vemo/scenegraph/SceneNode.h>

namespace lum {

SceneCanvas& SceneNode::canvas(Owned<SceneCanvas>& slot, const char* name) {
  if (slot.get() == nullptr) {
    slot.ensure(*this).setName(name);
  }
  return *slot.get();
}

void SceneNode::listFields(FieldList& fields) {
  Superclass::listFields(fields);
  fields.add("modelCanvas", _modelCanvas);
  fields.add("foregroundCanvas", _foregroundCanvas);
  fields.add("backgroundCanvas", _backgroundCanvas);
  fields.add("orientationCanvas", _orientationCanvas);
}

}  // namespace lum
