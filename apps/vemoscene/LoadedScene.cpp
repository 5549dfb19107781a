#include "LoadedScene.h"

#include "FileChecks.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/ImportScene.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <fmt/format.h>

namespace vemo {

LoadedScene::LoadedScene(const std::string& file) : _file(file) {
  const Progress progress(fmt::format("Reading {}", toPrintable(file)));
  _isZipped = detectScene(file) == SceneKind::ARCHIVE;
  if (_isZipped) {
    const lum::Ptr<lum::SceneNode> scene = importScene(toWidePath(file));
    _records.push_back(
        {{SceneConverter::RECORD_TITLE, SceneConverter::RECORD_DESCRIPTION, SceneConverter::RECORD_SIM_UUID},
         lum::Ptr<lum::Node>(scene.get())});
  } else {
    readDatabase();
  }
}

void LoadedScene::readDatabase() {
  lum::SDBReader reader(toWidePath(_file));
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
  throw Failure(ExitCode::READ_ERROR, fmt::format("{}: The database holds no scene", _file));
}

}  // namespace vemo
