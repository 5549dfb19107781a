#pragma once

#include <vemo/import/Export.h>
#include <vemo/scenegraph/Finding.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace lum {
class SceneNode;
}

namespace vemo {

class SceneImport;

/// What became of a part of an old scene in the new generation.
enum class Outcome {
  KEPT,     ///< It is in the scene graph.
  CHANGED,  ///< It is there, but not as the file says.
  LOST,     ///< It is not in the scene graph.
  UNKNOWN,  ///< It is not part of the format, and ignored.
};

/// "kept", "changed", "lost" or "unknown".
VEMO_IMPORT_EXPORT std::string_view outcomeName(Outcome outcome);

/// One element or attribute of the scene description, or one entry of the
/// archive.
struct LedgerRow {
  Outcome outcome = Outcome::KEPT;
  /// Of the element, as in findings: "scene/wing/view"; empty for an entry.
  std::string path;
  /// The name of the element; empty for an entry.
  std::string element;
  int line = 0;
  /// Empty for the element itself.
  std::string attribute;
  std::string value;
  std::string entry;
  /// Why it is not kept.
  std::vector<FindingCode> findings;
};

/// Reads and converts an old scene without writing anything, to see what
/// becomes of it. Goes on after faults, each of which is a finding, and checks
/// all entries of the archive.
class VEMO_IMPORT_EXPORT SceneAudit {
 public:
  /// Faults in the file are findings, and not thrown.
  explicit SceneAudit(const std::wstring& path);
  ~SceneAudit();
  SceneAudit(const SceneAudit&) = delete;
  SceneAudit& operator=(const SceneAudit&) = delete;

  /// Also those that were reported to the sink of the process.
  const std::vector<Finding>& getFindings() const { return _findings; }

  /// What could be converted; null when nothing could.
  lum::SceneNode* getSceneNode() const { return _sceneNode; }

  /// Lists the whole description in document order, then the entries.
  void listOutcomes(const std::function<void(const LedgerRow&)>& list) const;

 private:
  void run();

  std::unique_ptr<SceneImport> _import;
  lum::SceneNode* _sceneNode = nullptr;
  std::vector<Finding> _findings;
};

}  // namespace vemo
