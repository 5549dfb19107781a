#include "vemoview/resolve/canvas/PictureSamples.h"

#include <array>
#include <gtest/gtest.h>

namespace vemo {

namespace {

using Triangle = std::array<PictureSamples::Place, 3>;

/// Where rounding may move corners, and only as many rows as there are.
TEST(PictureSamplesTest, AreNotBesideThePicture) {
  const PictureSamples samples({1.0, 1.0});
  const auto isInside = [&samples](double low, double high) {
    long steps = 0;
    const bool result = samples.isInside(Triangle{{{0.2, low}, {0.8, low}, {0.5, high}}}, steps);
    EXPECT_LT(steps, 10'000);
    return result;
  };
  EXPECT_TRUE(isInside(0.2, 0.8));
  EXPECT_TRUE(isInside(-1e6, 1e6));
  EXPECT_FALSE(isInside(-1e6, -1.0));
  EXPECT_FALSE(isInside(2.0, 1e6));
}

TEST(PictureSamplesTest, AreNotLookedForInLinesNorBetweenColumns) {
  const PictureSamples samples({1.0, 1.0});
  for (const auto& triangle : {Triangle{{{0.2, 0.2}, {0.8, 0.8}, {0.5, 0.5}}},
                               Triangle{{{0.2, 0.2}, {0.2000001, 0.2}, {0.2, 0.8}}}}) {
    long steps = 0;
    EXPECT_FALSE(samples.isInside(triangle, steps));
    EXPECT_EQ(steps, 0);
  }
}

}  // namespace

}  // namespace vemo
