#include "vemoview/import/archive/ByteOrder.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <gtest/gtest.h>
#include <vector>

namespace vemo {

namespace {

TEST(ByteOrderTest, ConvertsWholeWordsOfAnyNumberAtAnyPlace) {
  for (std::size_t start = 0; start < 8; ++start) {
    for (std::size_t size = 0; size <= 40; ++size) {
      std::vector<unsigned char> bytes(start + size + 8);
      for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<unsigned char>(i + 1);
      }
      std::vector<unsigned char> expected = bytes;
      if (std::endian::native == std::endian::little) {
        for (std::size_t i = start; i + 4 <= start + size; i += 4) {
          std::reverse(&expected[i], &expected[i] + 4);
        }
      }
      convertWords(std::span(bytes).subspan(start, size));
      EXPECT_EQ(bytes, expected) << start << " " << size;
    }
  }
}

}  // namespace

}  // namespace vemo
