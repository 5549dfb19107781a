#include "export/database/DatabaseExport.h"

#include "export/database/Verification.h"
#include "output/ExitCode.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <string>

namespace vemo {

namespace {

using lum::io::FileIoStatus;

[[noreturn]] void failToWrite(const std::string& cause) {
  throw Failure(ExitCode::CANNOT_WRITE, cause);
}

void convertArchive(const ExportRequest& request) {
  SceneConverter converter(toWidePath(request.file), toWidePath(request.output));
  converter.setWriteFailureObserver(failToWrite);
  converter.setProgress(request.progress);
  if (request.verify) {
    converter.setObserver([&](lum::SceneNode& written) { verifyScene(request.output, written); });
  }
  converter.setLedgerObserver(request.observeLedger);
  converter.run();
}

/// Reading a record checks all of it, its arrays too.
void copyDatabase(const ExportRequest& request) {
  lum::SDBReader reader(toWidePath(request.file));
  reader.setProgress(request.progress);
  lum::SDBWriter writer;
  bool isWritten = writer.open(toWidePath(request.output), false, false) == FileIoStatus::Success;
  for (std::size_t i = 0; isWritten && i < reader.getRecords().size(); ++i) {
    const lum::SDBReader::Record& record = reader.getRecords()[i];
    const lum::Ptr<lum::Node> node = reader.readNode(i);
    int number = 0;
    isWritten = writer.addRecord(record.title, record.description, record.simUUID, *node, number) ==
                FileIoStatus::Success;
  }
  if (!isWritten || writer.close() != FileIoStatus::Success) {
    failToWrite(writer.getFailure());
  }
}

}  // namespace

void writeDatabase(const ExportRequest& request) {
  const std::string& file = request.file;
  if (detectScene(toWidePath(file)) == SceneKind::ARCHIVE) {
    convertArchive(request);
    return;
  }
  copyDatabase(request);
  if (request.verify) {
    verifyCopy(request.output, file);
  }
}

}  // namespace vemo
