#pragma once

#include "geometry/Box.h"

#include <vtkOpenGLActor.h>

#include <memory>
#include <utility>
#include <vector>

class vtkCamera;

namespace vemo {

using SharedBoxes = std::shared_ptr<const std::vector<Box>>;

/// Draws faces, and lines on them, with settings that VTK's actor lacks.
class MeshActor : public vtkOpenGLActor {
 public:
  static MeshActor* New();

  /// Its matrix mirrors, which reverses the winding of faces; VTK would light
  /// them from behind.
  void setMirrored(bool isMirrored) { _isMirrored = isMirrored; }

  /// Faces are moved back behind lines of a width in pixels that lie on them, the
  /// further the steeper they are seen: a line is as wide on either side. Those without lines
  /// are moved, too, so that none comes in front of another. Null for faces that stay.
  void setWidthOnFaces(std::shared_ptr<const double> pixels) { _widthOnFaces = std::move(pixels); }

  /// It is drawn a little nearer than it is, in front of others at the same
  /// depth.
  void setNearer(bool isNearer) { _isNearer = isNearer; }

  /// Its bounds are those of these boxes, each moved by itself, instead of the mapper's: they do
  /// not depend on what was merged or cut for drawing. Null for the mapper's.
  void setParts(SharedBoxes parts) { _parts = std::move(parts); }

  using vtkOpenGLActor::GetBounds;
  double* GetBounds() override;

  void Render(vtkRenderer* renderer, vtkMapper* mapper) override;

 private:
  void setDepthRange(vtkCamera& camera) const;

  SharedBoxes _parts;
  bool _isMirrored = false;
  bool _isNearer = false;
  std::shared_ptr<const double> _widthOnFaces;
};

}  // namespace vemo
