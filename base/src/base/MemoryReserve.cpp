#include "base/MemoryReserve.h"

#include <atomic>
#include <cstddef>
#include <new>

namespace vemo::OS {

namespace {

constexpr std::size_t PART_BYTES = std::size_t{256} << 10U;

/// Not a member: a handler has no arguments.
struct Reserve {
  std::atomic<std::byte*> toGoOn = nullptr;
  std::atomic<std::byte*> toUnwind = nullptr;
};
Reserve reserve;

bool release(std::atomic<std::byte*>& part) {
  const std::byte* const bytes = part.exchange(nullptr);
  delete[] bytes;
  return bytes != nullptr;
}

void handleNoMemory() {
  if (release(reserve.toGoOn)) {
    return;
  }
  std::set_new_handler(nullptr);
  release(reserve.toUnwind);
  throw std::bad_alloc();
}

}  // namespace

MemoryReserve::MemoryReserve() : _isInstalled(std::get_new_handler() == nullptr) {
  if (_isInstalled) {
    reserve.toGoOn = new std::byte[PART_BYTES];
    reserve.toUnwind = new std::byte[PART_BYTES];
    std::set_new_handler(handleNoMemory);
  }
}

MemoryReserve::~MemoryReserve() {
  if (_isInstalled && std::get_new_handler() == handleNoMemory) {
    std::set_new_handler(nullptr);
    release(reserve.toGoOn);
    release(reserve.toUnwind);
  }
}

}  // namespace vemo::OS
