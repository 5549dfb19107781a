#pragma once

#include <vtkProp.h>
#include <vtkType.h>

namespace vemo {

/// Lets OpenGL draw what it was given before it gets more than some. Software keeps what it has not
/// drawn yet: some hundred bytes of each triangle, and 64 KiB of each call, up to gigabytes of both.
class DrawQueue {
 public:
  /// After a call that passed so many corners of cells to OpenGL, whose context is current.
  void add(vtkIdType corners);

 private:
  vtkIdType _waiting = 0;
};

/// Draws nothing, and lets OpenGL draw what props before it in a renderer have passed to it: those that
/// count in no queue, such as texts.
class DrawPause : public vtkProp {
 public:
  static DrawPause* New();

  int RenderOpaqueGeometry(vtkViewport* viewport) override;
  int RenderOverlay(vtkViewport* viewport) override;
};

}  // namespace vemo
