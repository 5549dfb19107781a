#pragma once

#include <vtkType.h>

namespace vemo {

/// Lets OpenGL draw what it was given before it gets more than some. Software keeps the triangles that
/// it has not drawn yet, each in some hundred bytes, up to gigabytes of them.
class DrawQueue {
 public:
  /// After so many corners of cells were passed to OpenGL, whose context is current.
  void add(vtkIdType corners);

 private:
  vtkIdType _waiting = 0;
};

}  // namespace vemo
