#include "SceneDatabase.h"

#include "InputFile.h"
#include "TemporaryFiles.h"
#include "output/Messages.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <fmt/format.h>

namespace vemo {

SceneDatabase::SceneDatabase(const std::string& file) : _database(toWidePath(readableFile(file))) {
  if (detectScene(_database) == SceneKind::ARCHIVE) {
    useOwnTemporaryFolder();
    Progress progress(fmt::format("Reading {}", toPrintableLine(file)));
    _database = SceneFormatHandler::convertZippedScene(_database, progress.getReport());
  }
}

std::unique_ptr<lum::SDBReader> SceneDatabase::open() const {
  return std::make_unique<lum::SDBReader>(_database);
}

}  // namespace vemo
