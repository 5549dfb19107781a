#include "vemoview/import/items/NotShown.h"
#include <vemo/import/items/VectorGlyphs.h>

namespace vemo {

VectorGlyphs::~VectorGlyphs() = default;

void VectorGlyphs::read(const QxElement& element, SceneFileReader* reader) {
  warnNotShown(element, reader);
}

}  // namespace vemo
