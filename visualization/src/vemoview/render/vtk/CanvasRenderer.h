#pragma once

#include <vtkOpenGLRenderer.h>

namespace vemo {

/// A renderer without two faults of VTK's own.
///
/// It sorts translucent layers by depth one after the other. VTK peels two at once, from
/// the front and from the back, and leaves out all but the front layers where something
/// opaque is behind every pixel of theirs.
///
/// In parallel projection it shows everything in front of the camera. VTK leaves out
/// what is very near, which saves precision in perspective only.
class CanvasRenderer : public vtkOpenGLRenderer {
 public:
  static CanvasRenderer* New();

  using vtkOpenGLRenderer::ResetCameraClippingRange;
  void ResetCameraClippingRange(const double bounds[6]) override;

 protected:
  CanvasRenderer();
};

}  // namespace vemo
