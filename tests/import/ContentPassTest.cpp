#include "vemoview/import/archive/ByteOrder.h"
#include "vemoview/import/archive/ContentPass.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <vector>
#include <zlib.h>

namespace vemo {

namespace {

constexpr std::size_t BLOCK = ContentPass::BLOCK;

std::span<unsigned char> bytesOf(std::span<char> content) {
  return {reinterpret_cast<unsigned char*>(content.data()), content.size()};
}

void convert(std::span<char> content) {
  convertWords(bytesOf(content));
}

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

/// Content of which no more than `count` bytes were read; what was in memory
/// before is 'x'.
std::vector<char> contentOf(std::size_t size, std::size_t count) {
  std::vector<char> content(size, 'x');
  for (std::size_t i = 0; i < count; ++i) {
    content[i] = static_cast<char>(i * 7 + i / 251);
  }
  return content;
}

TEST(ContentPassTest, DoesInBlocksWhatThreePassesDo) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{4}, BLOCK, BLOCK + 4, 3 * BLOCK + 8}) {
    for (const std::size_t missing :
         {std::size_t{0}, std::size_t{1}, std::size_t{3}, BLOCK - 2, BLOCK + 5, size}) {
      const std::size_t count = size - std::min(missing, size);
      std::vector<char> expected = contentOf(size, count);
      const auto checksum = crc32(0, bytesOf(expected).data(), static_cast<uInt>(count));
      std::fill(expected.begin() + static_cast<std::ptrdiff_t>(count), expected.end(), '\0');
      convert(expected);
      for (const bool isAdvanced : {false, true}) {
        std::vector<char> content = contentOf(size, count);
        const ContentPass::Convert conversion = convert;
        ContentPass pass(content, conversion);
        for (std::size_t there = BLOCK; isAdvanced && there <= count; there += BLOCK) {
          pass.advance(there);
        }
        pass.finish(count);
        EXPECT_EQ(pass.getChecksum(), checksum) << count << " of " << size;
        EXPECT_TRUE(content == expected) << count << " of " << size;
      }
    }
  }
}

}  // namespace

}  // namespace vemo
