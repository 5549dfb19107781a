#pragma once

#include "SceneBlocks.h"
#include <vemo/base/Progress.h>
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/scenegraph/Finding.h>

#include <string>
#include <vector>

namespace vemo {

/// What is known of a scene file before any geometry is read. The nodes are null.
struct SceneOutline {
  SceneKind kind = SceneKind::DATABASE;
  std::string name;
  SceneParts parts;
  std::vector<SceneBlock> blocks;
  /// What each block is chosen by.
  std::vector<std::string> choices;
  CanvasCamera camera;
};

/// Throws as openScene does, and lum::io::FileError for a file without a scene.
SceneOutline outlineScene(const std::string& path, const ProgressReport& progress);

/// A scene with some of its blocks.
struct LoadedBlocks {
  OpenedScene scene;
  /// All of them: those of other parts are without geometry.
  std::vector<SceneBlock> blocks;
  std::vector<Finding> findings;
};
LoadedBlocks loadBlocks(const std::string& path, const PartFilter& wants, const ProgressReport& progress);

/// In a handler: what the exception says, and where; empty for Cancelled.
std::string describeFailure();

}  // namespace vemo
