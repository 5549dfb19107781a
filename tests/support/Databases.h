#pragma once

#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/inspect/Compare.h>
#include <vemo/scenegraph/io/FileIoStatus.h>
#include <vemo/scenegraph/io/NodeOutputStream.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace vemo {

using lum::firstDifference;
using lum::Node;
using lum::Ptr;
using lum::io::FileIoStatus;

/// Writes a database of one record.
FileIoStatus writeDatabase(const std::filesystem::path& path, Node& node);
Ptr<Node> readDatabase(const std::filesystem::path& path);

/// The graph after it was written to streams and read from them. Throws what
/// the streams throw.
Ptr<Node> throughStreams(const Node& node);

/// What an archive carries of scenes: a scene stream and data streams.
struct Payload {
  explicit Payload(lum::NodeOutputStream& stream);

  std::string scene;
  std::vector<std::string> data;
};

/// The bytes of a database taken apart, so that a test can say what nobody
/// would write.
struct DatabaseBytes {
  static constexpr std::size_t HEADER_SIZE = 256;

  explicit DatabaseBytes(const std::string& bytes);
  DatabaseBytes(std::string arrays, std::string table);

  /// The file, its index with the right hash.
  std::string join() const;

  /// Puts a text of the same length in place of one that is there.
  void replaceInIndex(const std::string& text, const std::string& other);

  std::string chunks;
  std::string index;
};

/// The hash that databases and streams have of their parts.
std::uint64_t hashOfPart(const void* bytes, std::size_t size);

}  // namespace vemo
