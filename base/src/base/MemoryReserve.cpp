#include "base/MemoryReserve.h"

#include <atomic>
#include <cstddef>
#include <exception>
#include <memory>
#include <new>

namespace vemo::OS {

namespace {

constexpr std::size_t PART_BYTES = std::size_t{256} << 10U;

/// Not a member: a handler has no arguments.
struct Reserve {
  std::atomic<std::byte*> toGoOn = nullptr;
  std::atomic<std::byte*> toUnwind = nullptr;
  std::atomic<bool> isForDestructors = false;
};
Reserve reserve;

bool freePart(std::atomic<std::byte*>& part) {
  const std::byte* const bytes = part.exchange(nullptr);
  delete[] bytes;
  return bytes != nullptr;
}

void handleNoMemory() {
  const bool isInDestructor = reserve.isForDestructors || std::uncaught_exceptions() > 0;
  if (freePart(reserve.toGoOn) || (isInDestructor && freePart(reserve.toUnwind))) {
    return;
  }
  std::set_new_handler(nullptr);
  freePart(reserve.toUnwind);
  throw std::bad_alloc();
}

}  // namespace

MemoryReserve::MemoryReserve() : _isInstalled(std::get_new_handler() == nullptr) {
  if (_isInstalled) {
    auto toGoOn = std::make_unique<std::byte[]>(PART_BYTES);
    reserve.toUnwind = new std::byte[PART_BYTES];
    reserve.toGoOn = toGoOn.release();
    std::set_new_handler(handleNoMemory);
  }
}

MemoryReserve::~MemoryReserve() {
  reserve.isForDestructors = false;
  if (_isInstalled && std::get_new_handler() == handleNoMemory) {
    std::set_new_handler(nullptr);
    freePart(reserve.toGoOn);
    freePart(reserve.toUnwind);
  }
}

void MemoryReserve::useForDestructors() {
  reserve.isForDestructors = true;
}

void throwNoMemory() {
  freePart(reserve.toUnwind);
  throw std::bad_alloc();
}

}  // namespace vemo::OS
