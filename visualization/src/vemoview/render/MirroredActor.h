#pragma once

#include <vtkOpenGLActor.h>

/// An actor whose matrix mirrors. The corners of its faces go round the other
/// way; without this VTK would light them from behind.
class MirroredActor : public vtkOpenGLActor {
 public:
  static MirroredActor* New();

  void Render(vtkRenderer* renderer, vtkMapper* mapper) override;
};
