#include "support/Databases.h"

#include "support/Files.h"
#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/io/NodeInputStream.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>
#include <vemo/scenegraph/io/SceneGraphWriter.h>

#include <cstdio>
#include <sstream>
#include <utility>
#include <xxhash.h>

namespace vemo {

using lum::io::FileIoStatus;

FileIoStatus writeDatabase(const std::filesystem::path& path, lum::Node& node) {
  lum::SDBWriter writer;
  int number = -1;
  FileIoStatus status = writer.open(wide(path), false, false);
  if (status == FileIoStatus::Success) {
    status = writer.addRecord("title", "description", "simUUID", node, number);
  }
  return status == FileIoStatus::Success ? writer.close() : status;
}

lum::Ptr<lum::Node> readDatabase(const std::filesystem::path& path) {
  return lum::SDBReader(wide(path)).readNode(0);
}

lum::Ptr<lum::Node> throughStreams(const lum::Node& node) {
  lum::NodeOutputStream out;
  node.write(out);
  std::stringstream scene;
  out.takeScene(scene);
  lum::NodeInputStream in(lum::NO_SESSION);
  in.readScene(scene);
  while (out.getDataCount() > 0) {
    std::stringstream data;
    out.takeData(data);
    in.readData(data);
  }
  return in.getRoots().at(0);
}

Payload::Payload(lum::NodeOutputStream& stream) {
  lum::SceneGraphWriter writer(stream);
  std::ostringstream out;
  VEMO_REQUIRE(writer.saveSceneFileToOutputStream(out), "the scene is not written");
  scene = out.str();
  for (std::size_t left = writer.getVtkDataCount(); left > 0; --left) {
    std::ostringstream dataOut;
    VEMO_REQUIRE(writer.saveVtkDataToOutputStream(dataOut), "data is not written");
    data.push_back(dataOut.str());
  }
  VEMO_REQUIRE(!writer.saveVtkDataToOutputStream(out), "there is more data than was counted");
}

std::uint64_t hashOfPart(const void* bytes, std::size_t size) {
  return XXH3_64bits(bytes, size);
}

DatabaseBytes::DatabaseBytes(const std::string& bytes) {
  const std::size_t offset = std::stoul(bytes.substr(bytes.find("\"offset\": ") + 10));
  chunks = bytes.substr(HEADER_SIZE, offset - HEADER_SIZE);
  index = bytes.substr(offset);
}

DatabaseBytes::DatabaseBytes(std::string arrays, std::string table)
    : chunks(std::move(arrays)), index(std::move(table)) {}

std::string DatabaseBytes::join() const {
  char header[HEADER_SIZE];
  std::snprintf(header, sizeof header,
                R"({"format": "scene-graph database", "version": 2, )"
                R"("index": {"offset": %zu, "size": %zu, "hash": "%016llx"}})",
                HEADER_SIZE + chunks.size(), index.size(),
                static_cast<unsigned long long>(hashOfPart(index.data(), index.size())));
  std::string line = header;
  line.resize(HEADER_SIZE - 1, ' ');
  return line + '\n' + chunks + index;
}

void DatabaseBytes::replaceInIndex(const std::string& text, const std::string& other) {
  VEMO_REQUIRE(text.size() == other.size() && index.find(text) != std::string::npos, text);
  index.replace(index.find(text), text.size(), other);
}

}  // namespace vemo
