#include "vemoview/render/PieceActor.h"

#include <vtkObjectFactory.h>
#include <vtk_glew.h>

vtkStandardNewMacro(PieceActor);

void PieceActor::Render(vtkRenderer* renderer, vtkMapper* mapper) {
  glFrontFace(_isMirrored ? GL_CW : GL_CCW);
  if (_stepBack > 0.0F) {
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(_stepBack, 1.0F);
  }
  vtkOpenGLActor::Render(renderer, mapper);
  glDisable(GL_POLYGON_OFFSET_FILL);
  glFrontFace(GL_CCW);
}
