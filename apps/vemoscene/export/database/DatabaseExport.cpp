#include "export/database/DatabaseExport.h"

#include "export/database/Verification.h"
#include "output/ExitCode.h"
#include "shared/CopyDatabase.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <string>

namespace vemo {

namespace {

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

}  // namespace

void writeDatabase(const ExportRequest& request) {
  const std::string& file = request.file;
  if (detectScene(toWidePath(file)) == SceneKind::ARCHIVE) {
    convertArchive(request);
    return;
  }
  copyDatabase(toWidePath(file), toWidePath(request.output), request.progress);
  if (request.verify) {
    verifyCopy(request.output, file);
  }
}

}  // namespace vemo
