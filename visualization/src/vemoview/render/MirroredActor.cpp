#include "vemoview/render/MirroredActor.h"

#include <vtkObjectFactory.h>
#include <vtk_glew.h>

vtkStandardNewMacro(MirroredActor);

void MirroredActor::Render(vtkRenderer* renderer, vtkMapper* mapper) {
  glFrontFace(GL_CW);
  vtkOpenGLActor::Render(renderer, mapper);
  glFrontFace(GL_CCW);
}
