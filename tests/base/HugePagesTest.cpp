#include "base/HugePages.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace vemo::OS {

namespace {

/// Whether the system follows the advice cannot be told; content and neighbours
/// must stay as they are.
TEST(HugePagesTest, ChangeNoContent) {
  constexpr std::size_t MIB = std::size_t{1} << 20U;
  std::vector<char> memory(9 * MIB, 'a');
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, MIB, 2 * MIB, 5 * MIB + 1}) {
    for (const std::size_t offset : {std::size_t{0}, std::size_t{1}, MIB + 7, 3 * MIB}) {
      preferHugePages(memory.data() + offset, size);
    }
  }
  EXPECT_EQ(std::ranges::count(memory, 'a'), static_cast<std::ptrdiff_t>(memory.size()));
}

TEST(HugePagesTest, ReleaseOnlyWhatLiesWithinTheBytes) {
  constexpr std::size_t MIB = std::size_t{1} << 20U;
  std::vector<char> memory(12 * MIB, 'a');
  for (const std::size_t offset : {std::size_t{0}, std::size_t{1}, MIB + 7}) {
    const std::size_t size = 7 * MIB + 3;
    releasePages(memory.data() + offset, size);
    EXPECT_EQ(std::count(memory.begin(), memory.begin() + offset, 'a'), offset);
    EXPECT_EQ(std::count(memory.begin() + offset + size, memory.end(), 'a'), memory.size() - offset - size);
    EXPECT_EQ(memory[offset + size / 2], '\0');
    std::ranges::fill(memory, 'a');
  }
}

}  // namespace

}  // namespace vemo::OS
