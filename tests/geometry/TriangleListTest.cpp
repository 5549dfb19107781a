#include "geometry/kernels/TriangleList.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace vemo {

namespace {

using List = std::vector<std::int32_t>;

struct Compacted {
  List indices;
  List ends;
  bool operator==(const Compacted&) const = default;
};

/// One cell after the other, the plain way.
Compacted compactPlainly(const List& list, std::int64_t pointCount) {
  Compacted result;
  for (std::size_t i = 0; i + 4 <= list.size() && list[i] == 3; i += 4) {
    for (std::size_t corner = 1; corner <= 3; ++corner) {
      if (list[i + corner] < 0 || list[i + corner] >= pointCount) {
        return result;
      }
    }
    result.indices.insert(result.indices.end(), &list[i + 1], &list[i + 1] + 3);
    result.ends.push_back(static_cast<std::int32_t>(result.indices.size()));
  }
  return result;
}

Compacted compactInBlocks(List list, std::uint32_t pointCount) {
  const List original = list;
  List ends(list.size() / 4);
  const std::size_t count = compactTriangles(list, pointCount, ends);
  // What follows is still to be read.
  EXPECT_TRUE(std::equal(list.begin() + 4 * static_cast<std::ptrdiff_t>(count), list.end(),
                         original.begin() + 4 * static_cast<std::ptrdiff_t>(count)));
  list.resize(3 * count);
  ends.resize(count);
  return {list, ends};
}

TEST(TriangleListTest, IsTheSameInBlocksWhereverAWordIsWrong) {
  constexpr std::int32_t HIGHEST = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t LOWEST = std::numeric_limits<std::int32_t>::min();
  List sound;
  for (std::int32_t i = 0; i < 9; ++i) {
    sound.insert(sound.end(), {3, i, i + 2, i + 1});
  }
  for (const std::uint32_t pointCount : {0U, 1U, 4U, 11U, 1U << 31U}) {
    for (std::size_t length = 0; length <= sound.size(); ++length) {
      const List list(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(length));
      EXPECT_EQ(compactInBlocks(list, pointCount), compactPlainly(list, pointCount)) << length;
    }
    for (std::size_t place = 0; place < sound.size(); ++place) {
      for (const std::int32_t word : {2, 3, 4, 10, 11, -1, HIGHEST, LOWEST, LOWEST + 3}) {
        List list = sound;
        list[place] = word;
        EXPECT_EQ(compactInBlocks(list, pointCount), compactPlainly(list, pointCount))
            << word << " at " << place << " of " << pointCount;
      }
    }
  }
}

}  // namespace

}  // namespace vemo
