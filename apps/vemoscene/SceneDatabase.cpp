#include "SceneDatabase.h"

#include "FileChecks.h"
#include "TemporaryFiles.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <fmt/format.h>
#include <sstream>

namespace vemo {

SceneDatabase::SceneDatabase(const std::string& file) : _path(toWidePath(file)) {
  useOwnTemporaryFolder();
  const Progress progress(fmt::format("Reading {}", toPrintable(file)));
  std::ostringstream messages;
  const lum::io::FileIoStatus status = SceneFormatHandler::loadVemoScene(
      _path,
      [this](const std::wstring& database) {
        _database = database;
        return true;
      },
      messages);
  if (status == lum::io::FileIoStatus::UnsupportedFormat) {
    rejectUnknownFormat(file, messages.str());
  }
  if (status != lum::io::FileIoStatus::Success) {
    throw Failure(static_cast<ExitCode>(status), messages.str());
  }
}

std::unique_ptr<lum::SDBReader> SceneDatabase::open() const {
  return std::make_unique<lum::SDBReader>(_database);
}

}  // namespace vemo
