#include <vemo/base/Progress.h>

#include <gtest/gtest.h>
#include <vector>

namespace vemo {

namespace {

TEST(ProgressTest, IsReportedSomeHundredTimesUpToTheEndOfThePhase) {
  std::vector<double> fractions;
  ProgressMeter meter([&fractions](double fraction) {
    fractions.push_back(fraction);
    return true;
  });
  meter.startPhase(0.5, 10'000);
  for (int unit = 0; unit < 9'999; ++unit) {
    meter.advance();
  }
  meter.advance(5'000);
  EXPECT_EQ(fractions.back(), 0.5);
  EXPECT_GT(fractions.size(), 50U);
  EXPECT_LT(fractions.size(), 500U);
}

}  // namespace

}  // namespace vemo
