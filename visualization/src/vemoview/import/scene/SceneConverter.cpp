#include "vemoview/import/scene/SceneImport.h"
#include <vemo/base/WideStream.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneLedger.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <cstdint>
#include <utility>

namespace vemo {

namespace {

/// The share of the time.
constexpr double IMPORTED = 0.8;

/// Normals and offsets of cells are written, too.
constexpr std::uint64_t BYTES_WRITTEN_PER_BYTE_READ = 2;

}  // namespace

SceneConverter::SceneConverter(const std::wstring& inputPath, const std::wstring& outputPath)
    : _inputPath(inputPath), _outputPath(outputPath) {}

void SceneConverter::setWriteFailureObserver(WriteFailureObserver observer) {
  _writeFailureObserver = std::move(observer);
}

void SceneConverter::setProgress(ProgressReport report) {
  _progress = std::move(report);
}

void SceneConverter::setVerifier(Verifier verifier) {
  _verifier = std::move(verifier);
}

void SceneConverter::setLedgerObserver(LedgerObserver observer) {
  _ledgerObserver = std::move(observer);
}

void SceneConverter::run() const {
  VEMO_LOG_INFO("Reading a file\n\t" << _inputPath << ", converting it, and writing to\n\t" << _outputPath);
  SceneImport import{ZipFileReader(_inputPath)};
  import.getReader().setProgress(partOf(_progress, 0, IMPORTED));
  if (_ledgerObserver) {
    import.getReader().collectFaults();
    import.getReader().keepDescription();
  }
  lum::SceneNode* const sceneNode = readAndConvert(import);
  if (sceneNode == nullptr) {
    _ledgerObserver(SceneLedger(import.getReader()));
    import.getReader().throwFirstFault();
    return;
  }
  VEMO_LOG_INFO("sceneNode with name \"" << sceneNode->getName() << "\" is here!");
  lum::SDBWriter writer;
  if (writer.open(_outputPath, false, false) != lum::io::FileIoStatus::Success) {
    VEMO_LOG_ERROR("Can't open file for writing");
    import.leaveSessionOpen();
    reportWriteFailure(writer.getFailure());
    return;
  }
  writer.setProgress(partOf(_progress, IMPORTED, 1),
                     BYTES_WRITTEN_PER_BYTE_READ * import.getReader().countBytesRead());
  if (_verifier) {
    writer.setVerifier([&](const std::wstring& file) { _verifier(*sceneNode, file); });
  }
  int recordNumber = 0;
  writer.addRecord(RECORD_TITLE, RECORD_DESCRIPTION, RECORD_SIM_UUID, *sceneNode, recordNumber);
  const bool isWritten = writer.close() == lum::io::FileIoStatus::Success;
  if (isWritten && _ledgerObserver) {
    _ledgerObserver(SceneLedger(import.getReader()));
  }
  import.close();
  VEMO_LOG_INFO("done");
  if (!isWritten) {
    reportWriteFailure(writer.getFailure());
  }
}

lum::SceneNode* SceneConverter::readAndConvert(SceneImport& import) const {
  SceneFileReader& reader = import.getReader();
  reader.attempt([&import] { import.read(); });
  if (reader.getDescription() == nullptr && reader.countFaults() > 0) {
    return nullptr;
  }
  VEMO_LOG_INFO("\nThe scene has been read\nParsing...");
  lum::SceneNode* sceneNode = nullptr;
  reader.attempt([&] { sceneNode = &import.convert(); });
  return reader.countFaults() == 0 ? sceneNode : nullptr;
}

void SceneConverter::reportWriteFailure(const std::string& cause) const {
  if (_writeFailureObserver) {
    _writeFailureObserver(cause);
  }
}

}  // namespace vemo
