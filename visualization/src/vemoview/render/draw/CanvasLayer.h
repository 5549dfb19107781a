#pragma once

#include "geometry/Box.h"
#include "vemoview/render/decorations/Decorations.h"
#include "vemoview/render/draw/CameraBook.h"
#include "vemoview/render/draw/Stroke.h"
#include "vemoview/render/resolve/Piece.h"
#include <vemo/render/Pick.h>

#include <memory>
#include <optional>
#include <vector>

class vtkPlaneCollection;
namespace lum {
class SceneCanvas;
}

namespace vemo {

/// What a canvas holds, in the canvas's part of the window: drawables, lights,
/// clipping planes, camera, but not its background.
class CanvasLayer {
 public:
  /// Null when no part of the window is the canvas's. The layer is noted in the
  /// book if the canvas has a camera. Canvas and book must stay.
  static std::unique_ptr<CanvasLayer> make(const lum::SceneCanvas& canvas, CameraBook& cameras);

  vtkRenderer& getRenderer() const { return *_renderer; }

  /// Shows what is visible in the canvas now, and nothing else.
  void followVisibility();

  /// Makes lines and points wider by a factor.
  void scalePixels(double factor);

  /// What is seen at a pixel of the window.
  std::optional<Pick> pick(const Vector<2, double>& pixel) const;

  /// Points the camera as the canvas says.
  void resetView();

  /// Around what is shown of a drawable, and of drawables that it owns.
  Box boundsOf(const lum::Drawable& drawable) const;

 private:
  CanvasLayer(const lum::SceneCanvas& canvas, vtkRenderer& renderer, CameraBook& cameras);
  void add(const std::vector<VisibleDrawable>& drawables);

  const lum::SceneCanvas& _canvas;
  vtkSmartPointer<vtkRenderer> _renderer;
  vtkSmartPointer<vtkPlaneCollection> _planes;
  PieceCollector _collector;
  std::vector<Stroke> _strokes;
  Decorations _decorations;
  /// The drawables that there are strokes and decorations of, shown or not.
  DrawableSet _made;
  double _pixelScale = 1.0;
};

}  // namespace vemo
