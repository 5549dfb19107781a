#pragma once

#include "geometry/Box.h"
#include "vemoview/render/resources/CanvasResources.h"
#include "vemoview/render/vtk/CanvasCameras.h"
#include "vemoview/render/vtk/PropGroup.h"
#include <vemo/render/Export.h>
#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/SceneResolver.h>

#include <memory>
#include <vector>

namespace vemo {

/// Adds the props that draw a decoration to a group. The planes clip it if it says so.
VEMO_RENDER_EXPORT void addProps(const Decoration& decoration, const CanvasCameras& cameras,
                                 CanvasResources& resources, PropGroup& group);

/// Around the texts in the model that a picture of all of it includes. VTK knows no
/// bounds of theirs.
VEMO_RENDER_EXPORT Box framedPlaces(const std::vector<Decoration>& decorations);

/// The decorations of a renderer.
class Decorations {
 public:
  /// The resources must outlive it.
  explicit Decorations(CanvasResources& resources) : _resources(resources) {}

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

  CanvasResources& _resources;
  std::vector<Member> _members;
  double _pixelScale = 1.0;
};

}  // namespace vemo
