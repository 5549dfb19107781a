// Databases whose index has the right hash. The parts of the input are what
// follows the header: the arrays and the index.

#include "Fuzzing.h"
#include "support/Databases.h"
#include "support/Files.h"
#include "support/SampleGraphs.h"
#include "support/TemporaryFolder.h"
#include <vemo/scenegraph/io/SDBReader.h>

#include <sys/mman.h>
#include <unistd.h>

namespace vemo {

FuzzInput makeSample() {
  const TemporaryFolder folder;
  writeDatabase(folder / "sample.sdb", *makeScene());
  const DatabaseBytes bytes(readFile(folder / "sample.sdb"));
  return {bytes.chunks, bytes.index};
}

void readInput(const FuzzInput& input) {
  // In memory, for all inputs the same one.
  static const int file = memfd_create("database", MFD_CLOEXEC);
  const std::string bytes = DatabaseBytes(input.first, input.second).join();
  require(ftruncate(file, 0) == 0 &&
              pwrite(file, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()),
          "no file in memory");
  lum::SDBReader reader(wide("/proc/self/fd/" + std::to_string(file)));
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    requireRoundTrip(*reader.readNode(i));
  }
}

}  // namespace vemo
