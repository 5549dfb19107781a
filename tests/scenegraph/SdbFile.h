#pragma once

#include "support/TemporaryFolder.h"
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#define XXH_INLINE_ALL
#include <xxhash.h>

namespace vemo {

inline std::wstring wide(const std::filesystem::path& path) {
  return toWidePath(path.native());
}

inline std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
  // Some file systems wait for the disk when a file is cut off and written anew.
  std::filesystem::remove(path);
  std::ofstream(path, std::ios::binary) << bytes;
}

inline lum::io::FileIoStatus writeDatabase(const std::filesystem::path& path, lum::Node& node) {
  lum::SDBWriter writer;
  int number = -1;
  EXPECT_EQ(writer.open(wide(path), false, false), lum::io::FileIoStatus::Success);
  const auto status = writer.addRecord("title", "description", "simUUID", node, number);
  return status == lum::io::FileIoStatus::Success ? writer.close() : status;
}

inline lum::Ptr<lum::Node> readDatabase(const std::filesystem::path& path, int sessionId = lum::NO_SESSION) {
  return lum::SDBReader(wide(path)).readNode(0, sessionId);
}

/// The bytes of a database taken apart, so that a test can say what nobody
/// would write.
struct DatabaseBytes {
  static constexpr std::size_t HEADER_SIZE = 256;

  explicit DatabaseBytes(const std::string& bytes) {
    const std::size_t offset = std::stoul(bytes.substr(bytes.find("\"offset\": ") + 10));
    chunks = bytes.substr(HEADER_SIZE, offset - HEADER_SIZE);
    index = bytes.substr(offset);
  }

  /// The file, its index with the right hash.
  std::string join() const {
    char hash[17];
    std::snprintf(hash, sizeof hash, "%016llx",
                  static_cast<unsigned long long>(XXH3_64bits(index.data(), index.size())));
    std::ostringstream header;
    header << R"({"format": "scene-graph database", "version": 1, "index": {"offset": )"
           << HEADER_SIZE + chunks.size() << R"(, "size": )" << index.size() << R"(, "hash": ")" << hash
           << "\"}}";
    std::string line = header.str();
    line.resize(HEADER_SIZE - 1, ' ');
    return line + '\n' + chunks + index;
  }

  /// Puts a text of the same length in place of one.
  void replaceInIndex(const std::string& text, const std::string& other) {
    const std::size_t place = index.find(text);
    ASSERT_NE(place, std::string::npos) << text;
    ASSERT_EQ(text.size(), other.size());
    index.replace(place, text.size(), other);
  }

  std::string chunks;
  std::string index;
};

}  // namespace vemo
