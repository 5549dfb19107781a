#pragma once

#include <vemo/import/SceneParts.h>
#include <vemo/resolve/InstanceTransforms.h>

#include <cstddef>
#include <string>
#include <vector>

namespace lum {
class GeometryDrawable;
class SceneNode;
}  // namespace lum

namespace vemo {

/// A piece of geometry of the model, visible or not.
struct SceneBlock {
  /// Its number among the parts of the file.
  std::size_t part = 0;
  /// The names of its assemblies, then its own; no other block has the same.
  std::vector<std::string> path;
  /// Whether the scene shows any of it.
  bool isVisible = false;
  const lum::GeometryDrawable* drawable = nullptr;
  const lum::PolyDataNode* node = nullptr;
  SharedInstanceTransforms transforms;
};

/// The path as one text: "wing/pressure".
std::string joinPath(const std::vector<std::string>& path, std::size_t length = std::string::npos);

/// The blocks of a scene in drawing order, whatever is read of it. Shows all drawables. Throws
/// SceneTooLarge.
std::vector<SceneBlock> listBlocks(lum::SceneNode& scene, const SceneParts& parts);

/// What the blocks are chosen by: their paths or, if these are too many for a list, the
/// assemblies that they are in, which then have another choice for what is hidden.
std::vector<std::string> choicesOf(const std::vector<SceneBlock>& blocks);

}  // namespace vemo
