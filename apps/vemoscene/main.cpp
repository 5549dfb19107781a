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

}  // namespace

int main(int argc, char** argv) {
  keepReleasedMemory();
  return static_cast<int>(vemo::runCommandLine(argc, argv));
}
