#include "vemoview/resolve/decorations/LegendTicks.h"

#include <gmock/gmock.h>

namespace vemo {

namespace {

using testing::ElementsAre;

std::vector<std::string> labels(double low, double high, const std::string& format = {}) {
  return labelsOf(makeLegendTicks({low, high}, false, 3), format);
}

TEST(LegendTicksTest, HaveAsManyDigitsAsNeighboursNeed) {
  EXPECT_THAT(labels(0, 1), ElementsAre("0", "0.5", "1"));
  EXPECT_THAT(labels(-123456, 123456), ElementsAre("-1.235e+05", "0", "1.235e+05"));
  EXPECT_THAT(labels(1000000, 1000001), ElementsAre("1000000", "1000000.5", "1000001"));
  EXPECT_THAT(labels(1000000, 1000001, "%.4g"), ElementsAre("1e+06", "1e+06", "1e+06"));
  EXPECT_EQ(labels(1, 1 + 2e-16).size(), 3U) << "no number between them";
}

}  // namespace

}  // namespace vemo
