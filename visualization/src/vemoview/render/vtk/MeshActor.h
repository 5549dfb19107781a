#pragma once

#include "geometry/Box.h"
#include "vemoview/render/vtk/DrawQueue.h"
#include "vemoview/render/vtk/WidestLines.h"

#include <vtkOpenGLActor.h>

#include <memory>
#include <utility>
#include <vector>

class vtkActor;
class vtkCamera;

namespace vemo {

/// Whether an actor draws something that multisampling does not make smooth.
bool showsFineShapes(vtkActor& actor);

using SharedBoxes = std::shared_ptr<const std::vector<Box>>;

/// Draws faces, and lines on them, with settings that VTK's actor lacks.
class MeshActor : public vtkOpenGLActor, public LinesProp {
 public:
  static MeshActor* New();

  /// Its matrix mirrors, which reverses the winding of faces; VTK would light
  /// them from behind.
  void setMirrored(bool isMirrored) { _isMirrored = isMirrored; }

  /// It is lines, edges or a contour, of a width in pixels, which faces may be behind.
  void setWidthOfLines(double width) { _widthOfLines = width; }

  /// Up to a few pixels: behind edges that are any wider, steep faces would be so far back that what
  /// they hide is seen through them.
  double getRoomBehind() override;

  /// It is faces, which are moved back behind lines, the further the steeper they are seen:
  /// a line is as wide on either side.
  void setBehind(std::shared_ptr<const WidestLines> lines) { _linesInFront = std::move(lines); }

  /// What it passes to OpenGL counts there.
  void setQueue(std::shared_ptr<DrawQueue> queue) { _queue = std::move(queue); }

  /// What is in front of others at the same depth: it is drawn a little nearer than it is. Edges and
  /// contours of surfaces are in front of lines, with which they would mix where both coincide.
  enum class Layer { FACES, IMAGES, LINES, EDGES };
  void setLayer(Layer layer) { _layer = layer; }

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
  Layer _layer = Layer::FACES;
  /// 0 for what makes no faces move.
  double _widthOfLines = 0.0;
  /// Null for what stays where it is.
  std::shared_ptr<const WidestLines> _linesInFront;
  /// Null for what draws little.
  std::shared_ptr<DrawQueue> _queue;
};

}  // namespace vemo
