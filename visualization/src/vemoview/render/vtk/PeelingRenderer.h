#pragma once

#include <vtkOpenGLRenderer.h>

namespace vemo {

/// Sorts translucent layers by depth, one after the other. VTK's own choice, which
/// peels two at once, from the front and from the back, leaves out all but the
/// front layers where something opaque is behind every pixel of theirs.
class PeelingRenderer : public vtkOpenGLRenderer {
 public:
  static PeelingRenderer* New();

 protected:
  PeelingRenderer();
};

}  // namespace vemo
