#pragma once

#include "geometry/Box.h"
#include "vemoview/render/decorations/Decorations.h"
#include "vemoview/render/draw/Batch.h"
#include "vemoview/render/vtk/CanvasCameras.h"
#include "vemoview/render/vtk/CanvasResources.h"
#include <vemo/resolve/Pick.h>
#include <vemo/resolve/ResolvedScene.h>

#include <optional>
#include <vector>

namespace vemo {

/// What a canvas shows, in a renderer of its own.
class CanvasLayer {
 public:
  explicit CanvasLayer(ResolvedCanvas canvas);
  CanvasLayer(const CanvasLayer&) = delete;
  CanvasLayer& operator=(const CanvasLayer&) = delete;

  /// To be called once, when the cameras of all canvases are known.
  void fill(const CanvasCameras& cameras);

  vtkRenderer& getRenderer() const { return *_resources.renderer; }
  bool isModel() const { return _canvas.role == ResolvedCanvas::Role::MODEL; }

  /// Shows what is visible in the canvas now, and nothing else.
  void update(CanvasUpdate update, const CanvasCameras& cameras);

  /// Makes lines and points wider by a factor.
  void scalePixels(double factor);

  /// What is seen at a pixel of the window.
  std::optional<Pick> pick(const Vector<2, double>& pixel) const;

  /// Points the camera as the canvas says.
  void resetView();

  /// Around what is shown of some drawables.
  Box boundsOf(const DrawableSet& drawables) const;

 private:
  void addBatches(std::vector<MeshInstance> meshes);

  /// Its meshes and decorations move to the batches and props.
  ResolvedCanvas _canvas;
  CanvasResources _resources;
  std::vector<Batch> _batches;
  Decorations _decorations;
  double _pixelScale = 1.0;
};

}  // namespace vemo
