#pragma once

#include "vemoview/render/vtk/CanvasCameras.h"
#include "vemoview/render/vtk/CanvasResources.h"
#include "vemoview/render/vtk/PropGroup.h"
#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/SceneResolver.h>

#include <memory>
#include <vector>

namespace vemo {

/// The decorations of a renderer.
class Decorations {
 public:
  explicit Decorations(const CanvasResources& resources);

  void add(const std::vector<Decoration>& decorations, const CanvasCameras& cameras);

  /// Shows those of some drawables, and no others.
  void show(const DrawableSet& visible);

  /// For lines and points that are added later, too.
  void scalePixels(double factor);

 private:
  struct Member {
    const lum::Drawable* drawable;
    std::unique_ptr<PropGroup> props;
  };

  vtkSmartPointer<vtkRenderer> _renderer;
  vtkSmartPointer<vtkPlaneCollection> _clipPlanes;
  std::vector<Member> _members;
  double _pixelScale = 1.0;
};

}  // namespace vemo
