#include "vemoview/import/items/NotShown.h"
#include <vemo/import/items/Streamlines.h>

namespace vemo {

Streamlines::~Streamlines() = default;

void Streamlines::read(const QxElement& element, SceneFileReader* reader) {
  warnNotShown(element, reader);
}

}  // namespace vemo
