// Replaces the allocation functions of the process by ones that count. They are in a file of their
// own: inlined into others, GCC would warn that they do not belong to each other.

#include "Allocations.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::atomic<std::uint64_t> allocationCount{0};
std::atomic<std::uint64_t> allocatedBytes{0};
std::atomic<std::int64_t> currentBytes{0};

std::int64_t sizeOf(void* block) {
  return block != nullptr ? static_cast<std::int64_t>(malloc_usable_size(block)) : 0;
}

}  // namespace

// The form that throws nothing need not call the other one: a sanitizer has its
// own, whose blocks must not get to free().
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  allocationCount.fetch_add(1, std::memory_order_relaxed);
  allocatedBytes.fetch_add(size, std::memory_order_relaxed);
  void* const block = std::malloc(size != 0 ? size : 1);
  currentBytes.fetch_add(sizeOf(block), std::memory_order_relaxed);
  return block;
}

void* operator new(std::size_t size) {
  void* const block = operator new(size, std::nothrow);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void operator delete(void* block) noexcept {
  currentBytes.fetch_sub(sizeOf(block), std::memory_order_relaxed);
  std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  operator delete(block);
}

namespace vemo {

Allocations Allocations::soFar() {
  return {allocationCount, allocatedBytes};
}

std::int64_t Allocations::current() {
  return currentBytes;
}

}  // namespace vemo
