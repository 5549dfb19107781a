#pragma once

#include <vemo/scenegraph/SceneNode.h>

namespace vemo {

class Colormap;
class Colormaps;

/// What items hand to their siblings and to their children while they are
/// converted.
struct SharedBySiblings {
  /// What the current children are converted into.
  lum::DrawableCollection* collection = nullptr;

  /// The scene that the whole conversion fills, for what stands outside its
  /// item's collection: camera, lights, triads, legends.
  lum::Ptr<lum::SceneNode> sceneNode;

  /// What colours data in the assembly being converted: outer colormaps go
  /// before inner ones. Null when there is none.
  const Colormap* colormap = nullptr;

  /// Those of the assembly whose legend is being converted; null when none is.
  const Colormaps* assemblyColormaps = nullptr;
};

}  // namespace vemo
