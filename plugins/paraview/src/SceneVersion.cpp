#include "SceneVersion.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <sstream>
#include <string>
#include <xxhash.h>

namespace vemo {

namespace {

/// The header of a database has a checksum of its index, and that has those of all arrays.
constexpr std::streamoff HEAD = 256;

/// Archives end with the checksums of their entries.
constexpr std::streamoff TAIL = 1 << 20;

std::string readAt(std::istream& stream, std::streamoff offset, std::streamoff size) {
  std::string bytes(static_cast<std::size_t>(size), '\0');
  stream.seekg(offset);
  stream.read(bytes.data(), size);
  return bytes;
}

void describeFile(const std::string& path, std::ostream& text) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  const std::streamoff size = std::max<std::streamoff>(file.tellg(), 0);
  const std::streamoff tail = std::min(size, TAIL);
  text << size << ' ' << readAt(file, 0, std::min(size, HEAD)) << readAt(file, size - tail, tail);
}

void describeOutline(const SceneOutline& outline, std::ostream& text) {
  for (const SceneBlock& block : outline.blocks) {
    text << block.part << ' ' << block.isVisible << ' ' << joinPath(block.path) << '\n';
  }
  for (const SceneParts::Part& part : outline.parts.parts) {
    for (const std::size_t array : part.arrays) {
      text << array << ' ' << outline.parts.arrayBytes[array] << ' ';
    }
    text << '\n';
  }
}

}  // namespace

std::uint64_t versionOf(const std::string& path, const SceneOutline& outline) {
  std::ostringstream text;
  describeFile(path, text);
  describeOutline(outline, text);
  const std::string bytes = text.str();
  return XXH3_64bits(bytes.data(), bytes.size());
}

}  // namespace vemo
