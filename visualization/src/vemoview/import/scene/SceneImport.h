#pragma once

#include "base/MemoryReserve.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneParts.h>
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <memory>
#include <string>

namespace vemo {

class Scene;

/// Turns an old scene into a scene graph: reads it, then converts it.
class SceneImport {
 public:
  /// Opens the archive; throws as ZipFileReader does.
  explicit SceneImport(ZipFileReader archive);
  /// Closes the session that the nodes of a scene graph in the archive are in.
  ~SceneImport();
  SceneImport(const SceneImport&) = delete;
  SceneImport& operator=(const SceneImport&) = delete;

  SceneFileReader& getReader() { return _reader; }
  const SceneFileReader& getReader() const { return _reader; }

  void read();
  /// Must come after reading. A scene graph that the archive carries is passed
  /// through, otherwise the items are converted one by one. Releases the items.
  lum::SceneNode& convert();

  /// Must be called before reading: only the parts of the geometry that the function wants
  /// are read. A scene graph in the archive is read as a whole, and keeps only these.
  void setPartFilter(PartFilter wants);
  /// After the conversion, all parts; none without a filter.
  const SceneParts& getParts() const { return _parts; }

  /// Releases the scene graph.
  void close();
  /// Keeps the session open, without the nodes in it.
  void leaveSessionOpen();

 private:
  /// A session of the node registry, or none yet; closed by the destructor.
  class Session {
   public:
    Session() = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    int open();
    void close();
    void leaveOpen();

   private:
    int _number = lum::NO_SESSION;
  };

  /// Destroyed last: the others' destructors may need it.
  OS::MemoryReserve _reserve;
  SceneFileReader _reader;
  std::unique_ptr<Scene> _scene;
  Session _session;
  lum::Ptr<lum::SceneNode> _sceneNode;
  PartFilter _wantsPart;
  SceneParts _parts;
};

}  // namespace vemo
