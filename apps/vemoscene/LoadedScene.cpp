#include "LoadedScene.h"

#include "SceneDatabase.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include <vemo/base/PrintableText.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <fmt/format.h>

namespace vemo {

LoadedScene::LoadedScene(const std::string& file) : _file(file) {
  const SceneDatabase database(file);
  const Progress progress(fmt::format("Reading {}", toPrintable(file)));
  _isZipped = database.isZipped();
  const auto reader = database.open();
  for (std::size_t i = 0; i < reader->getRecords().size(); ++i) {
    _records.push_back({reader->getRecords()[i], reader->readNode(i)});
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
