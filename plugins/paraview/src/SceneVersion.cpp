#include "SceneVersion.h"

#include <vemo/base/WidePath.h>
#include <vemo/import/archive/ZipFileReader.h>

#include <array>
#include <fmt/format.h>
#include <fstream>
#include <string_view>
#include <xxhash.h>

namespace vemo {

namespace {

/// Of all that was added, in that order.
class Digest {
 public:
  void add(std::string_view bytes) { _value = XXH3_64bits_withSeed(bytes.data(), bytes.size(), _value); }
  std::uint64_t getValue() const { return _value; }

 private:
  std::uint64_t _value = 0;
};

void addEntries(const std::string& path, Digest& digest) {
  const ZipFileReader archive(toWidePath(path));
  for (int i = 0; i < archive.getEntryCount(); ++i) {
    const std::string name = archive.getEntryName(i);
    digest.add(name);
    digest.add(fmt::format("{} {}", archive.getSize(name), archive.getChecksum(name)));
  }
}

/// It has a checksum of the index, and that has those of all arrays.
void addDatabaseHeader(const std::string& path, Digest& digest) {
  std::array<char, 256> header{};
  std::ifstream(path, std::ios::binary).read(header.data(), header.size());
  digest.add({header.data(), header.size()});
}

void addOutline(const SceneOutline& outline, Digest& digest) {
  for (const SceneBlock& block : outline.blocks) {
    digest.add(fmt::format("{} {} {}", block.part, block.isVisible, joinPath(block.path)));
  }
  for (const SceneParts::Part& part : outline.parts.parts) {
    for (const std::size_t array : part.arrays) {
      digest.add(fmt::format("{} {}", array, outline.parts.arrayBytes[array]));
    }
  }
}

}  // namespace

std::uint64_t versionOf(const std::string& path, const SceneOutline& outline) {
  Digest digest;
  if (outline.kind == SceneKind::ARCHIVE) {
    addEntries(path, digest);
  } else {
    addDatabaseHeader(path, digest);
  }
  addOutline(outline, digest);
  return digest.getValue();
}

}  // namespace vemo
