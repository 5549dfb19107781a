// Databases whose index has the right hash. The input is what follows the
// header, behind 4 bytes: how much of it is arrays.

#include "Fuzzing.h"
#include "support/SampleGraphs.h"
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/mman.h>
#include <unistd.h>
#include <xxhash.h>

namespace vemo {

namespace {

constexpr std::size_t HEADER_SIZE = 256;

std::string makeFile(const std::string& chunks, const std::string& index) {
  char header[HEADER_SIZE + 1];
  std::snprintf(
      header, sizeof header,
      R"({"format": "scene-graph database", "version": 1, "index": {"offset": %zu, "size": %zu, "hash": "%016llx"}})",
      HEADER_SIZE + chunks.size(), index.size(),
      static_cast<unsigned long long>(XXH3_64bits(index.data(), index.size())));
  std::string line = header;
  line.resize(HEADER_SIZE - 1, ' ');
  return line + '\n' + chunks + index;
}

std::string makeSample() {
  const auto path = std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(getpid()) + ".sdb");
  lum::SDBWriter writer;
  int number = 0;
  writer.open(toWidePath(path.native()), false, false);
  writer.addRecord("title", "description", "simUUID", *makeScene(), number);
  writer.close();
  std::ifstream in(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), {}};
  std::filesystem::remove(path);
  const auto offset = static_cast<std::uint32_t>(std::stoul(bytes.substr(bytes.find("\"offset\": ") + 10)));
  const std::uint32_t chunkBytes = offset - HEADER_SIZE;
  return std::string(reinterpret_cast<const char*>(&chunkBytes), 4) + bytes.substr(HEADER_SIZE);
}

/// A file in memory, for all inputs the same one.
const std::string& putIntoFile(const std::string& bytes) {
  static const int file = memfd_create("database", MFD_CLOEXEC);
  static const std::string path = "/proc/self/fd/" + std::to_string(file);
  require(ftruncate(file, 0) == 0 &&
              pwrite(file, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()),
          "no file in memory");
  return path;
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned /*seed*/) {
  static const std::string sample = makeSample();
  return mutate(sample, data, size, maximumSize);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::uint32_t chunkBytes = 0;
  if (size < sizeof chunkBytes) {
    return 0;
  }
  std::memcpy(&chunkBytes, data, sizeof chunkBytes);
  const std::string rest(reinterpret_cast<const char*>(data) + 4, size - 4);
  const std::size_t split = std::min<std::size_t>(chunkBytes, rest.size());
  const std::string& path = putIntoFile(makeFile(rest.substr(0, split), rest.substr(split)));
  try {
    lum::SDBReader reader(toWidePath(path));
    for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
      requireRoundTrip(*reader.readNode(i));
    }
  } catch (const lum::io::FileError& error) {
    require(error.what()[0] != '\0', "An error without a text");
  }
  return 0;
}

}  // namespace vemo
