#include "vemoview/resolve/values/LegendTicks.h"

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

/// During its lifetime, the process has the locale of a host that writes 0.5 as 0,5, if one is
/// installed. The numbers of streams have another one, which snprintf does not ask.
class WithDecimalComma {
 public:
  WithDecimalComma() {
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "es_ES.UTF-8", "pt_BR.UTF-8", "it_IT.UTF-8"}) {
      if (std::setlocale(LC_NUMERIC, name) != nullptr) {
        return;
      }
    }
  }
  WithDecimalComma(const WithDecimalComma&) = delete;
  WithDecimalComma& operator=(const WithDecimalComma&) = delete;
  ~WithDecimalComma() { std::setlocale(LC_NUMERIC, _before.c_str()); }

  static std::string separator() { return std::localeconv()->decimal_point; }

 private:
  std::string _before = std::setlocale(LC_NUMERIC, nullptr);
};

TEST(LegendTicksTest, LookTheSameInEveryLocaleOfTheHost) {
  const WithDecimalComma locale;
  if (WithDecimalComma::separator() != ",") {
    GTEST_SKIP() << "no locale with a decimal comma is installed";
  }
  EXPECT_THAT(labels(0, 1), ElementsAre("0", "0.5", "1"));
  EXPECT_THAT(labels(0, 3000, "%'.1f"), ElementsAre("0.0", "1500.0", "3000.0"));
  EXPECT_EQ(WithDecimalComma::separator(), ",") << "it is the host's";
}

}  // namespace

}  // namespace vemo
