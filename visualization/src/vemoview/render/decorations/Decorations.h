#pragma once

#include "vemoview/render/draw/CameraBook.h"
#include "vemoview/render/draw/PropGroup.h"
#include "vemoview/render/resolve/VisibleDrawables.h"

#include <memory>
#include <vector>

namespace vemo {

/// The drawables of a renderer that have no geometry of their own: triads,
/// legends, texts, images.
class Decorations {
 public:
  /// The book is asked whenever triads are added.
  Decorations(vtkRenderer& renderer, const CameraBook& cameras);

  /// Takes those among the drawables that are some.
  void add(const std::vector<VisibleDrawable>& drawables);

  /// Shows those of a set, and no others.
  void show(const DrawableSet& shown);

  /// For lines and points that are added later, too.
  void scalePixels(double factor);

 private:
  struct Decoration {
    const lum::Drawable* drawable;
    std::unique_ptr<PropGroup> props;
  };

  bool fill(PropGroup& props, const VisibleDrawable& visible);
  bool addCounted(PropGroup& props, const lum::Drawable& drawable, const double* placement);

  vtkSmartPointer<vtkRenderer> _renderer;
  const CameraBook& _cameras;
  std::vector<Decoration> _decorations;
  int _count = 0;
  bool _isFull = false;
  double _pixelScale = 1.0;
};

}  // namespace vemo
