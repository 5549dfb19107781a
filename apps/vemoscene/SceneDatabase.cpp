#include "SceneDatabase.h"

#include "TemporaryFiles.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/io/FileError.h>
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
  if (status != lum::io::FileIoStatus::Success) {
    throw Failure(static_cast<ExitCode>(status), messages.str());
  }
}

std::unique_ptr<lum::SDBReader> SceneDatabase::open() const {
  try {
    return std::make_unique<lum::SDBReader>(_database);
  } catch (const lum::io::FileError& error) {
    // There is no database when the converter could not write it.
    if (isZipped() && error.getStatus() != lum::io::FileIoStatus::ReadError) {
      throw Failure(ExitCode::CANNOT_WRITE, fmt::format("\"{}\", for the converted scene, cannot be written",
                                                        toNativePath(_database)));
    }
    throw;
  }
}

}  // namespace vemo
