#include "base/MemoryStream.h"
#include "vemoview/import/scene/SceneImport.h"
#include <vemo/import/OpenScene.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/io/FileError.h>

#include <istream>
#include <iterator>

namespace vemo {

namespace {

std::vector<OpenedScene::Record> readArchive(ZipFileReader archive, const ProgressReport& progress) {
  SceneImport import(std::move(archive));
  import.getReader().setProgress(progress);
  import.read();
  std::vector<OpenedScene::Record> records;
  records.push_back(
      {{SceneConverter::RECORD_TITLE, SceneConverter::RECORD_DESCRIPTION, SceneConverter::RECORD_SIM_UUID},
       lum::Ptr<lum::Node>(&import.convert())});
  return records;
}

std::vector<OpenedScene::Record> readDatabase(lum::SDBReader reader, const ProgressReport& progress) {
  reader.setProgress(progress);
  std::vector<OpenedScene::Record> records;
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    records.push_back({reader.getRecords()[i], reader.readNode(i)});
  }
  return records;
}

void reportEnd(const ProgressReport& progress) {
  ProgressMeter(progress).finish();
}

}  // namespace

lum::SceneNode* OpenedScene::findSceneNode() const {
  for (const Record& record : records) {
    if (auto* const scene = dynamic_cast<lum::SceneNode*>(record.node.getObject())) {
      return scene;
    }
  }
  return nullptr;
}

OpenedScene openScene(const std::wstring& path, const ProgressReport& progress) {
  OpenedScene scene{detectScene(path), {}};
  scene.records = scene.kind == SceneKind::ARCHIVE ? readArchive(ZipFileReader(path), progress)
                                                   : readDatabase(lum::SDBReader(path), progress);
  reportEnd(progress);
  return scene;
}

OpenedScene openScene(std::span<const std::byte> bytes, const ProgressReport& progress) {
  OpenedScene scene{detectScene(bytes), {}};
  if (scene.kind == SceneKind::ARCHIVE) {
    scene.records = readArchive(ZipFileReader(bytes), progress);
  } else {
    MemoryStream stream(bytes);
    scene.records = readDatabase(lum::SDBReader(stream), progress);
  }
  reportEnd(progress);
  return scene;
}

OpenedScene openScene(std::istream& stream, const ProgressReport& progress) {
  const std::string bytes(std::istreambuf_iterator<char>(stream), {});
  if (stream.bad()) {
    throw lum::io::FileError(lum::io::FileIoStatus::ReadError, "The stream cannot be read");
  }
  return openScene(std::as_bytes(std::span(bytes)), progress);
}

}  // namespace vemo
