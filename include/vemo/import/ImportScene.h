#pragma once

#include <vemo/import/Export.h>
#include <vemo/scenegraph/Ptr.h>

#include <string>

namespace lum {
class SceneNode;
}

namespace vemo {

/// Reads an old scene and returns its scene graph, which is what SceneConverter
/// would write, without a database on the way. No registry lists its nodes.
/// Throws what SceneConverter::run throws for a file that cannot be read or converted.
VEMO_IMPORT_EXPORT lum::Ptr<lum::SceneNode> importScene(const std::wstring& path);

}  // namespace vemo
