#include "vemoview/resolve/values/LegendTicks.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace vemo {

namespace {

using testing::ElementsAre;

std::vector<std::string> labels(double low, double high, const std::string& format = {}) {
  return labelsOf(makeLegendTicks({low, high}, false, 3), format);
}

TEST(LegendTicksTest, AreAtNumbersOfTheRange) {
  struct {
    Vector<2, double> range;
    bool isLog;
    int count;
    std::vector<double> values;
  } const cases[] = {{{0, 10}, false, 3, {0, 5, 10}},
                     {{0, 10}, false, 1, {0}},
                     {{5, 5}, false, 0, {}},
                     {{5, 5}, false, 3, {5}},
                     {{5, 5}, true, 3, {5}},
                     {{1, 1000}, true, 4, {1, 10, 100, 1000}},
                     {{1, 1e6}, true, 3, {1, 1e3, 1e6}},
                     {{1, 1000}, true, 1, {1}}};
  for (const auto& [range, isLog, count, values] : cases) {
    std::vector<double> found;
    for (const LegendTick& tick : makeLegendTicks(range, isLog, count)) {
      found.push_back(tick.value);
      EXPECT_TRUE(tick.place >= 0.0 && tick.place <= 1.0);
    }
    EXPECT_EQ(found, values) << range[1] << ", " << count;
  }
}

TEST(LegendTicksTest, HaveAsManyDigitsAsNeighboursNeed) {
  EXPECT_THAT(labels(0, 1), ElementsAre("0", "0.5", "1"));
  EXPECT_THAT(labels(-123456, 123456), ElementsAre("-1.235e+05", "0", "1.235e+05"));
  EXPECT_THAT(labels(1000000, 1000001), ElementsAre("1000000", "1000000.5", "1000001"));
  EXPECT_THAT(labels(1000000, 1000001, "%.4g"), ElementsAre("1e+06", "1e+06", "1e+06"));
  const std::string next = "1.0000000000000002";
  const auto neighbours = labels(1, std::stod(next));
  EXPECT_EQ(neighbours.front(), "1");
  EXPECT_EQ(neighbours.back(), next) << "no number between them";
}

TEST(LegendTicksTest, AreTheSameInEveryLocale) {
  const std::string former = std::setlocale(LC_NUMERIC, nullptr);
  const auto writesCommas = [](const char* locale) {
    return std::setlocale(LC_NUMERIC, locale) != nullptr && *std::localeconv()->decimal_point == ',';
  };
  if (!std::ranges::any_of(std::array{"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}, writesCommas)) {
    GTEST_SKIP() << "no locale that writes 0,5";
  }
  EXPECT_THAT(labels(0, 1), ElementsAre("0", "0.5", "1"));
  std::setlocale(LC_NUMERIC, former.c_str());
}

}  // namespace

}  // namespace vemo
