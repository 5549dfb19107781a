#include "vemoview/import/scene/SceneImport.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/import/SceneAudit.h>
#include <vemo/scenegraph/Findings.h>

namespace vemo {

namespace {

/// Such an entry does not stop a conversion, whatever it is. One that is encrypted, or
/// compressed in another way, need not be damaged.
void checkUnused(const std::string& entry, SceneFileReader& reader) {
  if (!reader.getArchive().isSizePossible(entry)) {
    return;
  }
  try {
    const ArrayOwner<unsigned char> checked(reader.readEntry(entry));
  } catch (const UnreadableException&) {
    throw;
  } catch (const Exception&) {
    reader.report(FindingCode::CHECKSUM_WRONG, "The entry cannot be read: its content may be damaged", entry);
  }
}

void checkNames(SceneFileReader& reader) {
  const ZipFileReader& archive = reader.getArchive();
  for (int i = 0; i < archive.getEntryCount(); ++i) {
    const std::string entry = archive.getEntryName(i);
    if (archive.hasOtherName(entry)) {
      reader.report(FindingCode::ENTRY_NAME_DIFFERS,
                    "The local header of the entry has a different name from the central directory", entry);
    }
  }
}

}  // namespace

SceneAudit::SceneAudit(const std::wstring& path) {
  const FindingCapture capture(_findings);
  try {
    _import = std::make_unique<SceneImport>(ZipFileReader(path));
    run();
  } catch (const UnreadableException&) {
    throw;
  } catch (const Exception& exception) {
    _findings.push_back(findingOf(exception));
  } catch (const Error& error) {
    _findings.push_back(findingOf(error));
  }
  if (_import != nullptr) {
    _import->getReader().reportUnlisted();
  }
}

SceneAudit::~SceneAudit() = default;

void SceneAudit::run() {
  SceneFileReader& reader = _import->getReader();
  reader.collectFaults();
  reader.reportAll();
  reader.keepDescription();
  reader.attempt([this] { _import->read(); });
  for (const std::string& entry : reader.getUnusedEntries()) {
    checkUnused(entry, reader);
  }
  checkNames(reader);
  const bool isDescribed = reader.getDescription() != nullptr;
  reader.dropDescription();
  if (isDescribed) {
    _sceneNode = &_import->convert();
  }
}

}  // namespace vemo
