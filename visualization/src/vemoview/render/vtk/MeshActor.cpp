#include "vemoview/render/vtk/MeshActor.h"

#include "vemoview/resolve/drawables/InstanceBounds.h"
#include <vemo/geometry/CellKind.h>

#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkMapper.h>
#include <vtkMatrix4x4.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLRenderer.h>
#include <vtkOpenGLState.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtk_glew.h>

#include <algorithm>

namespace vemo {

namespace {

vtkIdType countCorners(vtkMapper& mapper) {
  auto* const geometry = vtkPolyData::SafeDownCast(mapper.GetInput());
  vtkIdType corners = 0;
  for (const CellKindTraits& kind : CELL_KINDS) {
    corners += geometry != nullptr ? kind.get(*geometry)->GetNumberOfConnectivityIds() : 0;
  }
  return corners;
}

}  // namespace

bool showsFineShapes(vtkActor& actor) {
  auto* const geometry = vtkPolyData::SafeDownCast(actor.GetMapper()->GetInput());
  vtkProperty& property = *actor.GetProperty();
  return property.GetRenderPointsAsSpheres() || property.GetRepresentation() == VTK_WIREFRAME ||
         (geometry != nullptr && geometry->GetNumberOfLines() > 0);
}

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

double MeshActor::getRoomBehind() {
  constexpr double MOST = 2.0;
  return _widthOfLines > 0.0 ? GetProperty()->GetLineWidth() * std::min(1.0, MOST / _widthOfLines) : 0.0;
}

void MeshActor::Render(vtkRenderer* renderer, vtkMapper* mapper) {
  vtkOpenGLState& state = *static_cast<vtkOpenGLRenderer&>(*renderer).GetState();
  const vtkOpenGLState::ScopedglEnableDisable blending(&state, GL_BLEND);
  if (IsRenderingTranslucentPolygonalGeometry() == 0) {
    // Opaque colours replace what is behind them, without reading it.
    state.vtkglDisable(GL_BLEND);
  }
  glFrontFace(_isMirrored ? GL_CW : GL_CCW);
  if (_linesInFront != nullptr && _linesInFront->get() > 0.0) {
    // A little more than the half of a line's width that is on either side; any more would show what
    // is behind steep faces.
    constexpr double STEPS = 0.6;
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(static_cast<float>(STEPS * _linesInFront->get()), 1.0F);
  }
  setDepthRange(*renderer->GetActiveCamera());
  vtkOpenGLActor::Render(renderer, mapper);
  if (_queue != nullptr) {
    _queue->add(countCorners(*mapper));
  }
  glDepthRange(0.0, 1.0);
  glDisable(GL_POLYGON_OFFSET_FILL);
  glFrontFace(GL_CCW);
}

void MeshActor::setDepthRange(vtkCamera& camera) const {
  // How far in front of faces it is, as a part of the distance of edges.
  const double share = static_cast<double>(_layer) / static_cast<double>(Layer::EDGES);
  // A few steps of a depth buffer for each layer.
  constexpr double LEAST = 4e-7;
  const double* const range = camera.GetClippingRange();
  if (camera.GetParallelProjection() != 0) {
    // Less in a close view of a deep model: at most about half a pixel of a usual picture.
    constexpr double MOST = 6e-5;
    constexpr double MOST_OF_SCALE = 1e-3;
    const double nearer =
        std::clamp(MOST_OF_SCALE * camera.GetParallelScale() / (range[1] - range[0]), LEAST, MOST);
    // Faces farther and lines nearer: either alone would make no difference at one end of the depths.
    glDepthRange((1.0 - share) * nearer, 1.0 - share * nearer);
    return;
  }
  // In perspective a constant difference of depths would be a large one far away, where hidden
  // lines would be seen through faces. With these two ranges, it is that of a part of the distance.
  constexpr double NEARER = 3e-4;
  glDepthRange((1.0 - share) * NEARER, 1.0 - share * (NEARER * range[0] / range[1] + LEAST));
}

}  // namespace vemo
