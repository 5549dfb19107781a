// From an archive to a database, and back to the scene graph.

#include "Fuzzing.h"
#include "SceneText.h"
#include "support/Files.h"
#include "support/TemporaryFolder.h"
#include <vemo/import/Exception.h>
#include <vemo/import/SceneAudit.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/inspect/Compare.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <algorithm>

namespace vemo {

namespace {

void requireEqual(const lum::Node& left, const lum::Node& right, const std::string& what) {
  const std::string difference = lum::firstDifference(left, right);
  require(difference.empty(), what + ": " + difference);
}

/// Whether the archive is converted; what it becomes is checked.
bool isConverted(const std::wstring& archive, const SceneAudit& audit) {
  static const TemporaryFolder folder;
  static const std::wstring output = wide(folder / "scene.sdb");
  SceneConverter converter(archive, output);
  converter.setWriteFailureObserver(
      [](const std::string& cause) { require(false, "Not written: " + cause); });
  converter.setVerifier([&audit](lum::SceneNode& written, const std::wstring& file) {
    requireEqual(written, *lum::SDBReader(file).readNode(0), "The database has another scene");
    require(audit.getSceneNode() != nullptr, "The check has no scene");
    requireEqual(written, *audit.getSceneNode(), "The check has another scene");
  });
  try {
    converter.run();
    return true;
  } catch (const Exception&) {
    return false;
  } catch (const Error&) {
    return false;
  }
}

}  // namespace

void readInput(const std::string& input) {
  const auto bytes = buildArchive(input);
  const std::wstring archive = putIntoFile({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  const SceneAudit audit(archive);
  const bool isRefused = std::ranges::any_of(
      audit.getFindings(), [](const Finding& finding) { return finding.getSeverity() == Severity::REFUSED; });
  require(isConverted(archive, audit) == !isRefused, "The check and the conversion disagree");
}

}  // namespace vemo
