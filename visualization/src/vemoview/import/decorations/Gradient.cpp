#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/decorations/Gradient.h>
#include <vemo/scenegraph/Logger.h>

#include <utility>

namespace vemo {

const KeyTable<Gradient> Gradient::KEYS({
    key::always<&Gradient::_topColor>("topColor", "the first colour").withoutAlpha(),
    key::always<&Gradient::_bottomColor>("bottomColor", "the second colour").withoutAlpha(),
    key::always<&Gradient::_mode>(
        "mode",
        "where the first colour is, and where the second. `SOLID`, also the result of "
        "an unknown word, is an error")
        .named(MODES),
});

Gradient::Gradient(std::string name) : GraphicsItem(std::move(name)) {}
Gradient::~Gradient() = default;

void Gradient::read(const QxElement& element, SceneFileReader* reader) {
  // A mode that cannot be read is an error, unless a later gradient replaces this one.
  const HeldFindings held(reader, {"mode"});
  KEYS.readElement<GraphicsItem>(*this, element, reader);
  element.markUnused("name");
}

void Gradient::addToCollection(SharedBySiblings& /*shared*/, lum::DrawableCollection& /*collection*/,
                               int /*level*/, const std::string& /*parentName*/) const {
  VEMO_LOG_WARNING("***** Gradient::addToCollection not implemented *****");
}

}  // namespace vemo
