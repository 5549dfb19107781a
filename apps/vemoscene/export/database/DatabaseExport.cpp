#include "export/database/DatabaseExport.h"

#include "export/database/Verification.h"
#include "output/ExitCode.h"
#include "output/ResultStream.h"
#include "shared/CopyDatabase.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <fmt/format.h>
#include <optional>
#include <string>
#include <utility>

namespace vemo {

namespace {

[[noreturn]] void failToWrite(const std::string& cause) {
  throw Failure(ExitCode::CANNOT_WRITE, cause);
}

/// What was compared; nothing without verification.
using Verified = std::optional<DatabaseCounts>;

Verified convertArchive(const ExportRequest& request) {
  Verified verified;
  SceneConverter converter(toWidePath(request.file), toWidePath(request.output));
  converter.setWriteFailureObserver(failToWrite);
  converter.setProgress(request.progress);
  if (request.verify) {
    converter.setVerifier([&](lum::SceneNode& written, const std::wstring& database) {
      verified = verifyScene(database, written, request.output);
    });
  }
  converter.setLedgerObserver(request.observeLedger);
  converter.run();
  return verified;
}

Verified copy(const ExportRequest& request) {
  Verified verified;
  lum::SDBWriter::Verifier verifier;
  if (request.verify) {
    verifier = [&](const std::wstring& database) {
      verified = verifyCopy(database, request.file, request.output);
    };
  }
  copyDatabase(toWidePath(request.file), toWidePath(request.output), request.progress, std::move(verifier));
  return verified;
}

}  // namespace

void writeDatabase(const ExportRequest& request) {
  const bool isArchive = detectScene(toWidePath(request.file)) == SceneKind::ARCHIVE;
  const Verified verified = isArchive ? convertArchive(request) : copy(request);
  if (verified) {
    ResultStream out;
    out << fmt::format("{}: verified, {} read back equal\n", toPrintableLine(request.output),
                       describeCounts(*verified));
    out.finish();
  }
}

}  // namespace vemo
