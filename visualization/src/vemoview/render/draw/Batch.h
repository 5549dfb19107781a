#pragma once

#include "vemoview/render/vtk/PropGroup.h"
#include <vemo/resolve/MeshInstance.h>
#include <vemo/resolve/SceneResolver.h>

#include <memory>
#include <vector>

namespace vemo {

struct CanvasResources;

/// Meshes that are drawn together: one, or small ones merged.
class Batch {
 public:
  /// Of meshes that can be merged; at least one. Shows nothing yet. The
  /// resources must outlive it.
  /// @param keepsProps whether its props stay until it shows something else
  Batch(std::vector<MeshInstance> meshes, bool keepsProps, CanvasResources& resources);

  void showAll(double pixelScale);

  /// Shows the meshes of some drawables, and no others. Lines and points are
  /// wider by a factor.
  void show(const DrawableSet& visible, double pixelScale);

  void scalePixels(double factor);

  /// Calls visit(const MeshInstance&) for each mesh that is shown.
  template <class Visit>
  void forEachShown(Visit&& visit) const {
    for (std::size_t i = 0; i < _meshes.size(); ++i) {
      if (_isShown[i]) {
        visit(_meshes[i]);
      }
    }
  }

 private:
  void show(std::vector<bool> wanted, double pixelScale);
  void make(double pixelScale);

  std::vector<MeshInstance> _meshes;
  std::vector<bool> _isShown;
  /// Which of them the props draw, whether or not the props are shown.
  std::vector<bool> _isDrawn;
  bool _keepsProps;
  CanvasResources* _resources;
  std::unique_ptr<PropGroup> _props;
};

}  // namespace vemo
