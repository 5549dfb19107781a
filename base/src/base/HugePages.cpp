#include "base/HugePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace vemo::OS {

namespace {

/// Of the processors that have them in this size; for others it is a block of
/// sensible alignment.
constexpr std::size_t HUGE_PAGE = std::size_t{2} << 20U;

}  // namespace

void preferHugePages(void* block, std::size_t size) {
#ifdef MADV_HUGEPAGE
  auto* const bytes = static_cast<char*>(block);
  const std::size_t toBoundary = (0 - reinterpret_cast<std::uintptr_t>(bytes)) % HUGE_PAGE;
  if (size < toBoundary + HUGE_PAGE) {
    return;
  }
  // Advice: whether the system follows it changes nothing but the time.
  static_cast<void>(
      ::madvise(bytes + toBoundary, (size - toBoundary) / HUGE_PAGE * HUGE_PAGE, MADV_HUGEPAGE));
#endif
}

}  // namespace vemo::OS
