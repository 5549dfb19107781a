#pragma once

#include <vemo/import/Export.h>
#include <vemo/scenegraph/Finding.h>

#include <memory>
#include <string>
#include <vector>

namespace lum {
class SceneNode;
}

namespace vemo {

class SceneImport;

/// Reads and converts an old scene without writing anything, to see what
/// becomes of it. Continues after faults, which are findings, and checks all
/// entries of the archive.
class VEMO_IMPORT_EXPORT SceneAudit {
 public:
  /// Faults in the file are findings. Throws UnreadableException.
  explicit SceneAudit(const std::wstring& path);
  ~SceneAudit();
  SceneAudit(const SceneAudit&) = delete;
  SceneAudit& operator=(const SceneAudit&) = delete;

  /// Also those that were reported to the sink of the process.
  const std::vector<Finding>& getFindings() const { return _findings; }

  /// What could be converted; null when nothing could.
  lum::SceneNode* getSceneNode() const { return _sceneNode; }

 private:
  void run();

  std::unique_ptr<SceneImport> _import;
  lum::SceneNode* _sceneNode = nullptr;
  std::vector<Finding> _findings;
};

}  // namespace vemo
