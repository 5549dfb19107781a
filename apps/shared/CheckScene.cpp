#include "CheckScene.h"

#include "scenegraph/RepeatedFindings.h"
#include "scenegraph/UnlistedFindings.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/Exception.h>
#include <vemo/import/SceneAudit.h>
#include <vemo/render/MeasureText.h>
#include <vemo/render/RequireDrawable.h>
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <map>
#include <new>

namespace vemo {

namespace {

using FindingList = std::vector<Finding>;

/// What drawing the scene would report.
void checkDrawing(lum::SceneNode& scene, FindingList& findings) {
  const FindingCapture capture(findings);
  try {
    requireDrawable(SceneResolver(scene, {.measureText = measureText}).resolve());
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    reportFinding(FindingCode::SCENE_NOT_DRAWN, error.what());
  }
}

FindingList checkArchive(const std::wstring& path) {
  const SceneAudit audit(path);
  FindingList findings = audit.getFindings();
  if (audit.getSceneNode() != nullptr) {
    checkDrawing(*audit.getSceneNode(), findings);
  }
  return findings;
}

/// Lists the faults of a database. A damaged one may have a great many.
class DamageList {
 public:
  explicit DamageList(FindingList& findings) : _findings(findings) {}

  bool isEmpty() const { return _counts.empty(); }

  void add(FindingCode code, const std::string& fault) {
    if (++_counts[code] <= MOST_FINDINGS_OF_A_CODE) {
      _findings.push_back({code, fault});
    }
  }

  void finish() {
    for (const auto& [code, count] : _counts) {
      if (count > MOST_FINDINGS_OF_A_CODE) {
        _findings.push_back({code, describeUnlisted(count - MOST_FINDINGS_OF_A_CODE)});
      }
    }
  }

 private:
  FindingList& _findings;
  std::map<FindingCode, std::size_t> _counts;
};

/// What no node has does not stop a conversion; after a fault, a record that cannot be read may
/// have it.
void checkUnusedArrays(lum::SDBReader& reader, DamageList& damage) {
  const FindingCode code = damage.isEmpty() ? FindingCode::CHECKSUM_WRONG : FindingCode::DATABASE_DAMAGED;
  for (const std::size_t array : reader.getUnusedArrays()) {
    try {
      reader.checkArray(array);
    } catch (const lum::io::UnreadableFile&) {
      throw;
    } catch (const lum::io::FileError& error) {
      damage.add(code, error.what());
    }
  }
}

/// One fault does not hide others.
void checkDatabase(lum::SDBReader& reader, FindingList& findings) {
  DamageList damage(findings);
  bool isSceneMissing = true;
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    const lum::Ptr<lum::Node> node = reader.checkRecord(
        i, [&damage](const std::string& fault) { damage.add(FindingCode::DATABASE_DAMAGED, fault); });
    if (auto* const scene = dynamic_cast<lum::SceneNode*>(node.getObject())) {
      checkDrawing(*scene, findings);
      isSceneMissing = false;
    }
    // A damaged one may have been a scene.
    isSceneMissing = isSceneMissing && node;
  }
  checkUnusedArrays(reader, damage);
  damage.finish();
  if (isSceneMissing) {
    findings.push_back({FindingCode::SCENE_NOT_DRAWN, "The database holds no scene"});
  }
}

/// The text without the file's name, which is beside it.
std::string withoutPath(const std::string& text, const std::wstring& path) {
  const std::string prefix = toNativePath(path) + ": ";
  return text.starts_with(prefix) ? text.substr(prefix.size()) : text;
}

FindingList checkDatabase(const std::wstring& path) {
  FindingList findings;
  const FindingCapture capture(findings);
  try {
    lum::SDBReader reader(path);
    checkDatabase(reader, findings);
  } catch (const lum::io::UnreadableFile&) {
    throw;
  } catch (const lum::io::FileError& error) {
    findings.push_back({FindingCode::DATABASE_DAMAGED, withoutPath(error.what(), path)});
  }
  return findings;
}

SceneKind kindOf(const std::wstring& path) {
  try {
    return detectScene(path);
  } catch (const UnreadableException&) {
    throw;
  } catch (const Exception&) {
    // An archive that cannot be opened, which is a finding.
    return SceneKind::ARCHIVE;
  } catch (const lum::io::UnreadableFile&) {
    throw;
  } catch (const lum::io::FileError& error) {
    if (error.getStatus() != lum::io::FileIoStatus::ReadError) {
      throw;
    }
    // A damaged database, which is a finding, too.
    return SceneKind::DATABASE;
  }
}

}  // namespace

std::vector<Finding> checkScene(const std::wstring& path) {
  FindingList findings = kindOf(path) == SceneKind::ARCHIVE ? checkArchive(path) : checkDatabase(path);
  RepeatedFindings all;
  std::erase_if(findings, [&all](const Finding& finding) { return all.isRepeated(finding); });
  return findings;
}

}  // namespace vemo
