#pragma once

#include "scenegraph/inspect/NodePaths.h"
#include "vemoview/render/resources/CanvasResources.h"
#include "vemoview/render/vtk/CanvasCameras.h"
#include "vemoview/vtk/ImportedItems.h"
#include <vemo/base/Progress.h>
#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/MeshInstance.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <unordered_map>

namespace vemo {

/// Adds the props of items to renderers, hidden, each item's on its own.
class ItemBuilder {
 public:
  /// The scene and the meter must outlive it. Advances the meter by one for each mesh.
  ItemBuilder(const lum::SceneNode& scene, ProgressMeter& meter)
      : _scene(scene), _nodePaths(scene), _meter(meter) {}

  /// Of a canvas. The items are visible in the scene, or not.
  void add(const std::vector<MeshInstance>& meshes, bool areVisible, CanvasResources& resources);
  void add(const std::vector<Decoration>& decorations, bool areVisible, CanvasResources& resources,
           const CanvasCameras& cameras);

  ImportedItems finish();

 private:
  PropGroup& addGroup(const lum::Drawable& drawable, bool isVisible, vtkRenderer& renderer);

  std::size_t addPath(const lum::Node& node);

  const lum::SceneNode& _scene;
  lum::NodePaths _nodePaths;
  ProgressMeter& _meter;
  ItemPaths _paths;
  /// Of the items' nodes, and of those above them.
  std::unordered_map<const lum::Node*, std::size_t> _pathsOfNodes;
  std::vector<ImportedItem> _items;
  std::unordered_map<const lum::Drawable*, std::size_t> _indices;
};

}  // namespace vemo
