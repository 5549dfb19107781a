#pragma once

#include "scenegraph/SceneNode.h"

class AssemblyItem;

/// What items hand to their siblings and to their children while they are
/// converted.
struct SharedBySiblings {
  /// What the current children are converted into.
  lum::DrawableCollection* collection = nullptr;

  /// The scene that the whole conversion fills, for what stands outside its
  /// item's collection: camera, lights, triads, legends.
  lum::Ptr<lum::SceneNode> sceneNode;

  /// Whose legend is being converted, for the colormaps that it shows; null
  /// when none is.
  const AssemblyItem* assembly = nullptr;
};
