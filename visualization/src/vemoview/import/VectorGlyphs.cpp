#include "vemoview/import/VectorGlyphs.h"

VectorGlyphs::~VectorGlyphs() = default;

void VectorGlyphs::read(const QxElement& element, SceneFileReader* reader) {
  warnNotShown(element, reader);
}
