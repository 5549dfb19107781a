#include "CheckScene.h"

#include "scenegraph/RepeatedFindings.h"
#include "scenegraph/UnlistedFindings.h"
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

#include <new>
#include <set>

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

  void add(const std::string& fault) {
    if (++_count <= MOST_FINDINGS_OF_A_CODE) {
      _findings.push_back({FindingCode::DATABASE_DAMAGED, fault});
    }
  }

  void finish() {
    if (_count > MOST_FINDINGS_OF_A_CODE) {
      _findings.push_back(
          {FindingCode::DATABASE_DAMAGED, describeUnlisted(_count - MOST_FINDINGS_OF_A_CODE)});
    }
  }

 private:
  FindingList& _findings;
  std::size_t _count = 0;
};

std::set<std::size_t> checkArrays(lum::SDBReader& reader, DamageList& damage) {
  std::set<std::size_t> damaged;
  const std::size_t count = reader.getArrays().size();
  for (std::size_t i = 0; i < count; ++i) {
    try {
      reader.checkArray(i);
    } catch (const lum::io::UnreadableFile&) {
      throw;
    } catch (const lum::io::FileError& error) {
      damage.add(error.what());
      damaged.insert(i);
    }
  }
  return damaged;
}

/// Checks each array and each record separately, so that one fault does not
/// hide others.
void checkDatabase(lum::SDBReader& reader, FindingList& findings) {
  DamageList damage(findings);
  bool isSceneMissing = true;
  const std::set<std::size_t> damagedArrays = checkArrays(reader, damage);
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    const lum::SDBReader::CheckedRecord record = reader.checkRecord(i, damagedArrays);
    for (const std::string& fault : record.faults) {
      damage.add(fault);
    }
    if (auto* const scene = dynamic_cast<lum::SceneNode*>(record.node.getObject())) {
      checkDrawing(*scene, findings);
      isSceneMissing = false;
    }
    // A damaged one may have been a scene.
    isSceneMissing = isSceneMissing && record.node;
  }
  damage.finish();
  if (isSceneMissing) {
    findings.push_back({FindingCode::SCENE_NOT_DRAWN, "The database holds no scene"});
  }
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
    findings.push_back({FindingCode::DATABASE_DAMAGED, error.what()});
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
