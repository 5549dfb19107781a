#pragma once

#include <vtkOpenGLRenderer.h>

namespace vemo {

/// A renderer without two faults of VTK's own.
///
/// It sorts translucent layers by depth one after the other. VTK peels two at once, from
/// the front and from the back, and leaves out all but the front layers where something
/// opaque is behind every pixel of theirs.
///
/// It shows what is near the camera: in parallel projection everything in front of it, in
/// perspective down to 1/10,000 of the farthest. VTK leaves out what is nearer than 1/100.
class CanvasRenderer : public vtkOpenGLRenderer {
 public:
  static CanvasRenderer* New();

  using vtkOpenGLRenderer::ResetCameraClippingRange;
  void ResetCameraClippingRange(const double bounds[6]) override;

 protected:
  CanvasRenderer();
};

}  // namespace vemo
