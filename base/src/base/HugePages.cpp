#include "base/HugePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace vemo::OS {

namespace {

/// Of the processors that have them in this size; for others it is a block of
/// sensible alignment.
constexpr std::size_t HUGE_PAGE = std::size_t{2} << 20U;

/// Gives advice on the huge pages that lie within the bytes. A system that does not
/// follow it only takes more time or memory.
void advise(void* start, std::size_t size, int advice) {
  auto* const bytes = static_cast<char*>(start);
  const std::size_t toBoundary = (0 - reinterpret_cast<std::uintptr_t>(bytes)) % HUGE_PAGE;
  if (size >= toBoundary + HUGE_PAGE) {
    static_cast<void>(::madvise(bytes + toBoundary, (size - toBoundary) / HUGE_PAGE * HUGE_PAGE, advice));
  }
}

}  // namespace

void preferHugePages(void* block, std::size_t size) {
#ifdef MADV_HUGEPAGE
  advise(block, size, MADV_HUGEPAGE);
#endif
}

void releasePages(void* unused, std::size_t size) {
  advise(unused, size, MADV_DONTNEED);
}

}  // namespace vemo::OS
