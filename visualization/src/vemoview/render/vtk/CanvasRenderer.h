#pragma once

#include <vemo/render/Export.h>

#include <vtkOpenGLRenderer.h>

namespace vemo {

/// Moves a camera's near plane towards what is near it, in a box of everything visible: in
/// parallel projection everything in front of the camera is shown, in perspective down to
/// 1/10,000 of the farthest. VTK leaves out what is nearer than 1/100.
VEMO_RENDER_EXPORT void showNear(vtkCamera& camera, const double* bounds);

/// A renderer without two faults of VTK's own.
///
/// It sorts translucent layers by depth one after the other. VTK peels two at once, from
/// the front and from the back, and leaves out all but the front layers where something
/// opaque is behind every pixel of theirs.
///
/// It shows what is near the camera.
class CanvasRenderer : public vtkOpenGLRenderer {
 public:
  static CanvasRenderer* New();

  /// Lets another renderer sort translucent layers in the same way. Its window,
  /// if it has one, is current.
  VEMO_RENDER_EXPORT static void peelDepths(vtkOpenGLRenderer& renderer);
  /// Lets VTK choose a way again. The renderer's window, if it has one, is current.
  VEMO_RENDER_EXPORT static void releasePeeling(vtkOpenGLRenderer& renderer);

  using vtkOpenGLRenderer::ResetCameraClippingRange;
  void ResetCameraClippingRange(const double bounds[6]) override;

 protected:
  CanvasRenderer();
};

}  // namespace vemo
