#include "vemoview/import/Streamlines.h"

Streamlines::~Streamlines() = default;

void Streamlines::read(const QxElement& element, SceneFileReader* reader) {
  warnNotShown(element, reader);
}
