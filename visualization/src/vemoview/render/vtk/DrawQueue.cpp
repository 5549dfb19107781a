#include "vemoview/render/vtk/DrawQueue.h"

#include <vtkObjectFactory.h>
#include <vtk_glew.h>

namespace vemo {

void DrawQueue::add(vtkIdType corners) {
  constexpr vtkIdType MOST_WAITING = 250'000;
  constexpr vtkIdType CORNERS_OF_A_CALL = 2'500;
  _waiting += corners + CORNERS_OF_A_CALL;
  if (_waiting > MOST_WAITING) {
    glFinish();
    _waiting = 0;
  }
}

vtkStandardNewMacro(DrawPause);

int DrawPause::RenderOpaqueGeometry(vtkViewport*) {
  glFinish();
  return 0;
}

int DrawPause::RenderOverlay(vtkViewport*) {
  glFinish();
  return 0;
}

}  // namespace vemo
