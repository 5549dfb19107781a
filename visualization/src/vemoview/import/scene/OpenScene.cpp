#include "base/MemoryStream.h"
#include "vemoview/import/scene/PartList.h"
#include "vemoview/import/scene/SceneImport.h"
#include <vemo/import/OpenScene.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneParts.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/io/FileError.h>

#include <exception>
#include <istream>
#include <streambuf>
#include <string>

namespace vemo {

namespace {

std::vector<OpenedScene::Record> readArchive(SceneImport& import, const ProgressReport& progress) {
  import.getReader().setProgress(progress);
  import.read();
  std::vector<OpenedScene::Record> records;
  records.push_back(
      {{SceneConverter::RECORD_TITLE, SceneConverter::RECORD_DESCRIPTION, SceneConverter::RECORD_SIM_UUID},
       lum::Ptr<lum::Node>(&import.convert())});
  return records;
}

std::vector<OpenedScene::Record> readArchive(ZipFileReader archive, const ProgressReport& progress) {
  SceneImport import(std::move(archive));
  return readArchive(import, progress);
}

std::vector<OpenedScene::Record> readDatabase(lum::SDBReader& reader, const ProgressReport& progress) {
  reader.setProgress(progress);
  std::vector<OpenedScene::Record> records;
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    records.push_back({reader.getRecords()[i], reader.readNode(i)});
  }
  return records;
}

std::vector<OpenedScene::Record> readDatabase(const std::wstring& path, const ProgressReport& progress) {
  lum::SDBReader reader(path);
  return readDatabase(reader, progress);
}

[[noreturn]] void failToRead() {
  throw lum::io::FileError(lum::io::FileIoStatus::ReadError, "The stream cannot be read");
}

/// From its buffer: the stream itself may throw at its end.
std::string readAll(std::istream& stream) {
  constexpr std::streamsize BLOCK = 1 << 20;
  if (stream.rdbuf() == nullptr || stream.bad() || (stream.fail() && !stream.eof())) {
    failToRead();
  }
  std::string bytes;
  std::size_t size = 0;
  std::streamsize count = BLOCK;
  while (count == BLOCK) {
    bytes.resize(size + BLOCK);
    try {
      count = stream.rdbuf()->sgetn(bytes.data() + size, BLOCK);
    } catch (const std::exception&) {
      failToRead();
    }
    size += static_cast<std::size_t>(count);
  }
  bytes.resize(size);
  return bytes;
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

lum::SceneNode& OpenedScene::requireSceneNode() const {
  lum::SceneNode* const scene = findSceneNode();
  if (scene == nullptr) {
    throw lum::io::FileError(lum::io::FileIoStatus::ReadError, "The database holds no scene");
  }
  return *scene;
}

OpenedScene openScene(const std::wstring& path, const ProgressReport& progress) {
  OpenedScene scene{detectScene(path), {}};
  scene.records = scene.kind == SceneKind::ARCHIVE ? readArchive(ZipFileReader(path), progress)
                                                   : readDatabase(path, progress);
  reportEnd(progress);
  return scene;
}

OpenedScene openScene(std::span<const std::byte> bytes, const ProgressReport& progress) {
  OpenedScene scene{detectScene(bytes), {}};
  if (scene.kind == SceneKind::ARCHIVE) {
    scene.records = readArchive(ZipFileReader(bytes), progress);
  } else {
    MemoryStream stream(bytes);
    lum::SDBReader reader(stream);
    scene.records = readDatabase(reader, progress);
  }
  reportEnd(progress);
  return scene;
}

OpenedScene openScene(std::istream& stream, const ProgressReport& progress) {
  const std::string bytes = readAll(stream);
  return openScene(std::as_bytes(std::span(bytes)), progress);
}

OpenedScene openSceneParts(const std::wstring& path, const PartFilter& wants, SceneParts& parts,
                           const ProgressReport& progress) {
  OpenedScene scene{detectScene(path), {}};
  parts = {};
  if (scene.kind == SceneKind::ARCHIVE) {
    SceneImport import{ZipFileReader(path)};
    import.setPartFilter(wants);
    scene.records = readArchive(import, progress);
    parts = import.getParts();
  } else {
    lum::SDBReader reader(path);
    filterParts(reader, wants, parts);
    scene.records = readDatabase(reader, progress);
  }
  reportEnd(progress);
  return scene;
}

}  // namespace vemo
