#include "export/database/DatabaseExport.h"

#include "FileChecks.h"
#include "export/database/Verification.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/io/CheckFormat.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <fmt/format.h>
#include <fstream>
#include <sstream>

namespace vemo {

namespace {

using lum::io::FileIoStatus;

[[noreturn]] void failToWrite(const std::string& output) {
  throw Failure(ExitCode::CANNOT_WRITE, fmt::format("\"{}\" cannot be written", output));
}

/// The converter does not report whether it could write; the output shows it.
void requireWritten(const ReplacementWatch& watch, const std::string& output) {
  // Opened only now: an earlier file may be a pipe, on which opening blocks.
  if (!watch.isReplaced()) {
    failToWrite(output);
  }
  std::ifstream written(output, std::ios::binary);
  std::ostringstream messages;
  if (!sdb::checkFormat(written, messages)) {
    showMessage(messages.str());
    failToWrite(output);
  }
}

void convertArchive(const ExportRequest& request) {
  const ReplacementWatch watch(request.output);
  SceneConverter converter(toWidePath(request.file), toWidePath(request.output));
  if (request.verify) {
    converter.setObserver([&](lum::SceneNode& written) {
      requireWritten(watch, request.output);
      verifyScene(request.output, written);
    });
  }
  converter.setLedgerObserver(request.observeLedger);
  converter.run();
  requireWritten(watch, request.output);
}

/// Reading a record checks all of it, its arrays too.
void copyDatabase(const std::string& file, const std::string& output) {
  lum::SDBReader reader(toWidePath(file));
  lum::SDBWriter writer;
  bool isWritten = writer.open(toWidePath(output), false, false) == FileIoStatus::Success;
  for (std::size_t i = 0; isWritten && i < reader.getRecords().size(); ++i) {
    const lum::SDBReader::Record& record = reader.getRecords()[i];
    const lum::Ptr<lum::Node> node = reader.readNode(i);
    int number = 0;
    isWritten = writer.addRecord(record.title, record.description, record.simUUID, *node, number) ==
                FileIoStatus::Success;
  }
  if (!isWritten || writer.close() != FileIoStatus::Success) {
    failToWrite(output);
  }
}

}  // namespace

void writeDatabase(const ExportRequest& request) {
  const std::string& file = request.file;
  if (detectScene(file) == SceneKind::ARCHIVE) {
    convertArchive(request);
    return;
  }
  copyDatabase(file, request.output);
  if (request.verify) {
    verifyCopy(request.output, file);
  }
}

}  // namespace vemo
