#pragma once

#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <string>
#include <vector>

namespace lum {
class SceneNode;
}

namespace vemo {

/// The content of a scene file in memory.
class LoadedScene {
 public:
  struct Record : lum::SDBReader::Record {
    lum::Ptr<lum::Node> node;
  };

  /// Reads a scene file of either generation. Throws Failure and the exceptions of
  /// the libraries.
  explicit LoadedScene(const std::string& file);

  /// Whether the file is an archive of the old generation.
  bool isZipped() const { return _isZipped; }
  const std::vector<Record>& getRecords() const { return _records; }

  /// The first scene. Throws Failure with READ_ERROR when there is none.
  lum::SceneNode& getSceneNode() const;

 private:
  void readDatabase();

  std::string _file;
  bool _isZipped = false;
  std::vector<Record> _records;
};

}  // namespace vemo
