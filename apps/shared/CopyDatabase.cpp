#include "CopyDatabase.h"

#include <vemo/import/Exception.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <utility>

namespace vemo {

void copyDatabase(const std::wstring& path, const std::wstring& output, const ProgressReport& progress,
                  lum::SDBWriter::Verifier verifier) {
  using lum::io::FileIoStatus;
  lum::SDBReader reader(path);
  reader.setProgress(progress);
  lum::SDBWriter writer;
  bool isWritten = writer.open(output, false, false) == FileIoStatus::Success;
  writer.setVerifier(std::move(verifier));
  for (std::size_t i = 0; isWritten && i < reader.getRecords().size(); ++i) {
    const lum::SDBReader::Record& record = reader.getRecords()[i];
    // Checks all of it, its arrays too.
    const lum::Ptr<lum::Node> node = reader.readNode(i);
    int number = 0;
    isWritten = writer.addRecord(record.title, record.description, record.simUUID, *node, number) ==
                FileIoStatus::Success;
  }
  if (!isWritten || writer.close() != FileIoStatus::Success) {
    throw OutputException(writer.getFailure());
  }
  // The reader has reported what it did itself.
  if (progress) {
    progress(1.0);
  }
}

}  // namespace vemo
