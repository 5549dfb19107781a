#pragma once

#include <vemo/base/Progress.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/Export.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string>
#include <vector>

namespace lum {
class SceneNode;
}

namespace vemo {

/// The content of a scene file in memory.
struct VEMO_IMPORT_EXPORT OpenedScene {
  /// A database has any number of records, an archive one: that which SceneConverter
  /// would write.
  struct Record : lum::SDBReader::Record {
    lum::Ptr<lum::Node> node;
  };

  SceneKind kind = SceneKind::DATABASE;
  std::vector<Record> records;

  /// The scene node of the first record that has one; null without any.
  lum::SceneNode* findSceneNode() const;
  /// The same. Throws lum::io::FileError without any.
  lum::SceneNode& requireSceneNode() const;
};

/// Reads a scene of either generation; no file is written. No registry lists the nodes.
///
/// Throws lum::io::FileError, Exception and InternalError for a file that is not a scene or
/// cannot be read, and Cancelled.
VEMO_IMPORT_EXPORT OpenedScene openScene(const std::wstring& path, const ProgressReport& progress = {});

/// The same for a scene in memory, which is not needed afterwards.
VEMO_IMPORT_EXPORT OpenedScene openScene(std::span<const std::byte> bytes,
                                         const ProgressReport& progress = {});

/// The same for a stream, which is read from its position to its end: it need not be
/// seekable, but all of it is in memory meanwhile.
VEMO_IMPORT_EXPORT OpenedScene openScene(std::istream& stream, const ProgressReport& progress = {});

}  // namespace vemo
