#pragma once

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

}  // namespace vemo
