#include "vemoview/render/vtk/MeshActor.h"

#include "vemoview/resolve/drawables/InstanceBounds.h"

#include <vtkMatrix4x4.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLRenderer.h>
#include <vtkOpenGLState.h>
#include <vtk_glew.h>

namespace vemo {

vtkStandardNewMacro(MeshActor);

double* MeshActor::GetBounds() {
  if (_parts == nullptr) {
    return vtkOpenGLActor::GetBounds();
  }
  if (GetMTime() > BoundsMTime) {
    BoundsMTime.Modified();
    InstanceTransform transform{};
    vtkMatrix4x4::DeepCopy(transform.data(), GetMatrix());
    Box box;
    for (const Box& part : *_parts) {
      box.add(instanceBounds(&transform, part));
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
      Bounds[2 * axis] = box.low[axis];
      Bounds[2 * axis + 1] = box.high[axis];
    }
  }
  return Bounds;
}

void MeshActor::Render(vtkRenderer* renderer, vtkMapper* mapper) {
  vtkOpenGLState& state = *static_cast<vtkOpenGLRenderer&>(*renderer).GetState();
  const vtkOpenGLState::ScopedglEnableDisable blending(&state, GL_BLEND);
  if (IsRenderingTranslucentPolygonalGeometry() == 0) {
    // Opaque colours replace what is behind them, without reading it.
    state.vtkglDisable(GL_BLEND);
  }
  glFrontFace(_isMirrored ? GL_CW : GL_CCW);
  if (_stepBack > 0.0F) {
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(_stepBack, 1.0F);
  }
  if (_isNearer) {
    constexpr double NEARER = 6e-5;
    glDepthRange(0.0, 1.0 - NEARER);
  }
  vtkOpenGLActor::Render(renderer, mapper);
  glDepthRange(0.0, 1.0);
  glDisable(GL_POLYGON_OFFSET_FILL);
  glFrontFace(GL_CCW);
}

}  // namespace vemo
