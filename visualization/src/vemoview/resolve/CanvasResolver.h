#pragma once

#include "geometry/Box.h"
#include "vemoview/resolve/decorations/DecorationResolver.h"
#include "vemoview/resolve/drawables/VisibleDrawables.h"
#include "vemoview/resolve/mesh/MeshResolver.h"
#include <vemo/resolve/SceneResolver.h>

namespace lum {
class SceneCanvas;
}

namespace vemo {

/// Resolves a canvas, then what becomes visible in it.
class CanvasResolver {
 public:
  /// Whether the canvas has drawables, and a part of the window for them.
  static bool canShow(const lum::SceneCanvas& canvas);
  /// If one that has no part of the window shows anything.
  static void reportOutside(const lum::SceneCanvas& canvas);

  /// Of a canvas that can show something. Canvas, cameras, tables and options must outlive
  /// it.
  CanvasResolver(const lum::SceneCanvas& canvas, ResolvedCanvas::Role role, const Background& background,
                 const CameraIndices& cameras, ColorTables& tables, const ResolveOptions& options);

  ResolvedCanvas resolve();
  CanvasUpdate update();
  CanvasUpdate resolveHidden();
  /// The last of these, once.
  void takeBack();

 private:
  /// Before the last update.
  struct Former {
    std::vector<const lum::Drawable*> added;
    DecorationResolver::Taken taken;
    Box model;
  };

  CanvasUpdate collectAdded();
  void requireDrawn(const CanvasUpdate& content) const;
  void requireDrawnOrTakeBack(const CanvasUpdate& content);
  Box fittedBox(const CanvasUpdate& content) const;
  // The size is the canvas's, as a part of the window's.
  void frame(CanvasUpdate& content, const CanvasCamera& camera, const Vector<2, double>& size);
  void view(CanvasUpdate& content, const CanvasCamera& camera, const Vector<2, double>& size);
  CanvasUpdate resolve(const std::vector<VisibleDrawable>& drawables, DrawableSet visibleNow);

  const lum::SceneCanvas& _canvas;
  ResolvedCanvas::Role _role;
  /// None where it is not the model's.
  ViewChange _viewChange;
  const TextMeasure& _measureText;
  std::vector<ClipPlane> _clipPlanes;
  /// Of a picture, and the part of the window that it has.
  CanvasCamera _camera;
  Vector<2, double> _size{1.0, 1.0};
  MeshResolver _meshes;
  DecorationResolver _decorations;
  /// The drawables that have been resolved.
  DrawableSet _resolved;
  /// Around all that was visible before, except for texts.
  Box _model;
  Former _former;
};

}  // namespace vemo
