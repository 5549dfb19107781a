#pragma once

#include <vemo/base/Progress.h>
#include <vemo/import/Export.h>
#include <vemo/import/OpenScene.h>
#include <vemo/import/PartFilter.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vemo {

/// The geometry of a scene file, in parts. They are numbered from 0, always in the same
/// order.
struct VEMO_IMPORT_EXPORT SceneParts {
  struct Part {
    /// Null for an item that is not in the scene graph.
    lum::Ptr<lum::PolyDataNode> node;
    /// Numbers of the stored arrays that it is read from. Parts may share arrays.
    std::vector<std::size_t> arrays;
  };

  std::vector<Part> parts;
  /// The size of each stored array, uncompressed.
  std::vector<std::uint64_t> arrayBytes;
};

/// Reads a scene with only some parts of its geometry, as `openScene` does. The scene graph has all of
/// its nodes, but those of other parts have no points, cells and values. These are not read
/// from the file, and damage there is not noticed; only a scene graph that an archive carries is read
/// as a whole.
///
/// A filter that wants nothing makes a list to choose from.
/// @param parts receives all parts, wanted or not
VEMO_IMPORT_EXPORT OpenedScene openSceneParts(const std::wstring& path, const PartFilter& wants,
                                              SceneParts& parts, const ProgressReport& progress = {});

}  // namespace vemo
