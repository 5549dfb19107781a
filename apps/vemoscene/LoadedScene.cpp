#include "LoadedScene.h"

#include "ExitCode.h"
#include "Messages.h"
#include "TemporaryFiles.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/SceneNode.h>
#include <vemo/scenegraph/io/FileError.h>

#include <fmt/format.h>
#include <sstream>

namespace vemo {

LoadedScene::LoadedScene(const std::string& file) : _path(toWidePath(file)) {
  useOwnTemporaryFolder();
  const Progress progress(fmt::format("Reading {}", toPrintable(file)));
  std::ostringstream messages;
  const lum::io::FileIoStatus status = SceneFormatHandler::loadVemoScene(
      _path, [this](const std::wstring& database) { return load(database); }, messages);
  if (status != lum::io::FileIoStatus::Success) {
    throw Failure(static_cast<ExitCode>(status), messages.str());
  }
  showMessage(messages.str());
}

bool LoadedScene::load(const std::wstring& database) {
  _isZipped = database != _path;
  try {
    read(database);
  } catch (const lum::io::FileError& error) {
    // There is no database when the converter could not write it.
    if (_isZipped && error.getStatus() != lum::io::FileIoStatus::ReadError) {
      throw Failure(ExitCode::CANNOT_WRITE, fmt::format("\"{}\", for the converted scene, cannot be written",
                                                        toNativePath(database)));
    }
    throw;
  }
  return true;
}

void LoadedScene::read(const std::wstring& database) {
  lum::SDBReader reader(database);
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    _records.push_back({reader.getRecords()[i], reader.readNode(i)});
  }
}

lum::SceneNode& LoadedScene::getSceneNode() const {
  for (const Record& record : _records) {
    if (auto* const scene = dynamic_cast<lum::SceneNode*>(record.node.getObject())) {
      return *scene;
    }
  }
  throw Failure(ExitCode::READ_ERROR, fmt::format("{}: The database holds no scene", toNativePath(_path)));
}

}  // namespace vemo
