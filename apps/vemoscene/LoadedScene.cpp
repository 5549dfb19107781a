#include "LoadedScene.h"

#include "ExitCode.h"
#include "Messages.h"
#include "TemporaryFiles.h"
#include "platform/WidePath.h"
#include "scenegraph/SceneNode.h"
#include "scenegraph/io/FileError.h"
#include "vemoview/import/SceneFormatHandler.h"

#include <fmt/format.h>
#include <sstream>

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
    if (!_isZipped) {
      throw;
    }
    // The user's file is sound: it has been converted.
    throw Failure(ExitCode::CANNOT_WRITE, fmt::format("The converted scene cannot be kept in the folder for "
                                                      "temporary files, \"{}\": {}",
                                                      toNativePath(database), error.what()));
  }
  return true;
}

void LoadedScene::read(const std::wstring& database) {
  lum::SDBReader reader(database);
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    _records.push_back({reader.getRecords()[i], reader.readNode(i)});
  }
}

const lum::SceneNode& LoadedScene::getSceneNode() const {
  for (const Record& record : _records) {
    if (const auto* scene = dynamic_cast<const lum::SceneNode*>(record.node.getObject())) {
      return *scene;
    }
  }
  throw Failure(ExitCode::READ_ERROR, fmt::format("{}: The database holds no scene", toNativePath(_path)));
}
