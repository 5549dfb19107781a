#include "base/MemoryReserve.h"

#include <gtest/gtest.h>
#include <new>

namespace vemo {

namespace {

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
