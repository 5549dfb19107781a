// Replaces the allocation functions of the process by ones that count. They are in a file of their
// own: inlined into others, GCC would warn that they do not belong to each other.

#include "Allocations.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::uint64_t> allocationCount{0};
std::atomic<std::uint64_t> allocatedBytes{0};

}  // namespace

// The form that throws nothing need not call the other one: a sanitizer has its
// own, whose blocks must not get to free().
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  allocationCount.fetch_add(1, std::memory_order_relaxed);
  allocatedBytes.fetch_add(size, std::memory_order_relaxed);
  return std::malloc(size != 0 ? size : 1);
}

void* operator new(std::size_t size) {
  void* const block = operator new(size, std::nothrow);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  std::free(block);
}

namespace vemo {

Allocations Allocations::soFar() {
  return {allocationCount, allocatedBytes};
}

}  // namespace vemo
