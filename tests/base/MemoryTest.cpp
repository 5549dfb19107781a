#include "base/HugePages.h"
#include "base/MemoryReserve.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <vector>

namespace vemo {

namespace {

constexpr std::size_t MIB = std::size_t{1} << 20U;

/// Whether the system follows the advice cannot be told; content and neighbours
/// must stay as they are.
TEST(HugePagesTest, ChangeNoContent) {
  std::vector<char> memory(9 * MIB, 'a');
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, MIB, 2 * MIB, 5 * MIB + 1}) {
    for (const std::size_t offset : {std::size_t{0}, std::size_t{1}, MIB + 7, 3 * MIB}) {
      OS::preferHugePages(memory.data() + offset, size);
    }
  }
  EXPECT_EQ(std::ranges::count(memory, 'a'), static_cast<std::ptrdiff_t>(memory.size()));
}

TEST(HugePagesTest, ReleaseOnlyWhatLiesWithinTheBytes) {
  std::vector<char> memory(12 * MIB, 'a');
  for (const std::size_t offset : {std::size_t{0}, std::size_t{1}, MIB + 7}) {
    const std::size_t size = 7 * MIB + 3;
    OS::releasePages(memory.data() + offset, size);
    EXPECT_EQ(std::count(memory.begin(), memory.begin() + offset, 'a'), offset);
    EXPECT_EQ(std::count(memory.begin() + offset + size, memory.end(), 'a'), memory.size() - offset - size);
    EXPECT_EQ(memory[offset + size / 2], '\0');
    std::ranges::fill(memory, 'a');
  }
}

TEST(MemoryReserveTest, ServesTheFirstAllocationThatFailsAndLetsTheNextOneThrow) {
  {
    const OS::MemoryReserve reserve;
    const OS::MemoryReserve another;
    const std::new_handler handler = std::get_new_handler();
    ASSERT_NE(handler, nullptr);
    EXPECT_NO_THROW(handler());
    EXPECT_EQ(std::get_new_handler(), handler) << "must be there for the next failure";
    EXPECT_THROW(handler(), std::bad_alloc);
    EXPECT_EQ(std::get_new_handler(), nullptr);
  }
  const OS::MemoryReserve next;
  const auto handle = std::get_new_handler();
  {
    OS::MemoryReserve nested;
    nested.useForDestructors();
    EXPECT_NO_THROW(handle());
    EXPECT_NO_THROW(handle());
  }
  EXPECT_THROW(handle(), std::bad_alloc);
}

TEST(MemoryReserveTest, ServesDestructorsWhileAnExceptionIsOnItsWay) {
  const OS::MemoryReserve reserve;
  struct Allocating {
    ~Allocating() {
      std::get_new_handler()();
      std::get_new_handler()();
    }
  };
  const auto fail = [] {
    const Allocating allocating;
    throw std::runtime_error("of a bad file");
  };
  EXPECT_THROW(fail(), std::runtime_error);
}

TEST(MemoryReserveTest, LeavesTheHandlerOfAHostAlone) {
  const auto ofHost = [] { throw std::bad_alloc(); };
  std::set_new_handler(ofHost);
  {
    const OS::MemoryReserve reserve;
    EXPECT_EQ(std::get_new_handler(), std::new_handler(ofHost));
  }
  EXPECT_EQ(std::get_new_handler(), std::new_handler(ofHost));
  std::set_new_handler(nullptr);
}

}  // namespace

}  // namespace vemo
