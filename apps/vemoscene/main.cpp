#include "CommandLine.h"

#include <malloc.h>

namespace {

/// Large blocks are reused instead of being returned to the system, which would
/// clear each of their pages again for the next one.
void keepReleasedMemory() {
  constexpr int LARGEST = 1 << 30;
  mallopt(M_MMAP_THRESHOLD, LARGEST);
  mallopt(M_TRIM_THRESHOLD, LARGEST);
}

/// Scenes of many items allocate a great many small blocks, which are freed
/// together. Kept apart from other free memory, they would be merged into it over
/// and over, whenever a large block is allocated.
void mergeReleasedMemoryAtOnce() {
  mallopt(M_MXFAST, 0);
}

}  // namespace

int main(int argc, char** argv) {
  keepReleasedMemory();
  mergeReleasedMemoryAtOnce();
  return static_cast<int>(vemo::runCommandLine(argc, argv));
}
