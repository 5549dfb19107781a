#include "vemoview/render/vtk/DrawQueue.h"

#include <vtk_glew.h>

namespace vemo {

void DrawQueue::add(vtkIdType corners) {
  constexpr vtkIdType MOST_WAITING = 250'000;
  _waiting += corners;
  if (_waiting > MOST_WAITING) {
    glFinish();
    _waiting = 0;
  }
}

}  // namespace vemo
