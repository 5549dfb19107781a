#include "render/RenderScene.h"
#include "scenegraph/drawables/Overlays.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using Pixel = Picture::Pixel;

constexpr int SIZE = RenderScene::SIZE;
constexpr Pixel BLACK = {0, 0, 0};
constexpr Pixel WHITE = {255, 255, 255};

/// A legend in four colours on a white ground.
class Legend : public testing::Test {
 protected:
  Legend() {
    auto& background = scene.node().getBackgroundCanvas().getBackgroundAttributes();
    background.setSolidColor({1, 1, 1});
    table.setColorValues({1, 0, 0, 1, 0, 1, 0, 1, 0, 0, 1, 1, 1, 1, 0, 1});
    table.setNumColor(4);
    table.setScalarRange({0, 100});
    legend.getPositionAttributes().setPosition({0.25, 0.125, 0}, false);
    attributes.setSize({0.5, 0.75});
    attributes.setTitle("Pressure [Pa]");
    legend.getTextAttributes().setFontSize(0.05);
  }

  Picture render() const { return scene.render(); }

  /// The rows at which something dark begins in a column.
  static std::vector<int> darkRuns(const Picture& picture, int column) {
    std::vector<int> rows;
    for (int row = 1; row < SIZE; ++row) {
      if (picture.at(column, row)[0] < 100 && picture.at(column, row - 1)[0] >= 100) {
        rows.push_back(row);
      }
    }
    return rows;
  }

  RenderScene scene;
  lum::LegendDrawable& legend =
      scene.node().getForegroundCanvas().getDrawableCollection().findOrCreate<lum::LegendDrawable>("legend");
  lum::ColorLookupTable& table = legend.getColorLookupTable();
  lum::LegendAttributes& attributes = legend.getLegendAttributes();
};

TEST_F(Legend, StandsUprightAtItsPlaceWithTicksAtItsNumbers) {
  const Picture picture = render();
  // The bar begins at a quarter of the width, its line is 15 pixels high.
  for (const Pixel& color : {Pixel{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}}) {
    EXPECT_NEAR(countPixels(picture, color, 0), 17 * 190 / 4, 150);
  }
  EXPECT_EQ(picture.at(80, 245), (Pixel{255, 0, 0})) << "the low end is at the bottom";
  const auto ticks = darkRuns(picture, 95);
  ASSERT_EQ(ticks.size(), 5U);
  for (std::size_t i = 1; i < ticks.size(); ++i) {
    EXPECT_NEAR(ticks[i] - ticks[i - 1], (ticks.back() - ticks.front()) / 4.0, 1.1);
  }
  EXPECT_NEAR(ticks.back(), SIZE - 0.125 * SIZE - 7.5, 2);
  // Nothing is drawn outside the legend's place.
  for (int row = 0; row < SIZE; ++row) {
    EXPECT_EQ(picture.at(60, row), WHITE);
    EXPECT_EQ(picture.at(240, row), WHITE);
  }
}

TEST_F(Legend, LiesWithItsLowEndAtTheLeft) {
  attributes.setOrientation(lum::LegendOrientation::HORIZONTAL);
  attributes.setSize({0.6, 0.25});
  const Picture picture = render();
  int last = 0;
  for (const Pixel& color : {Pixel{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}}) {
    int first = SIZE;
    for (int row = 0; row < SIZE; ++row) {
      for (int column = 0; column < SIZE; ++column) {
        first = picture.at(column, row) == color ? std::min(first, column) : first;
      }
    }
    EXPECT_GT(first, last);
    last = first;
  }
}

TEST_F(Legend, PutsLogarithmicTicksAtPowersOfTen) {
  table.setScaleMode(lum::ScaleMode::LOG10);
  table.setScalarRange({0.05, 5000});
  attributes.setNumberOfLabels(5);
  const auto ticks = darkRuns(render(), 95);
  // 0.1, 1, 10, 100 and 1000 on a bar of five powers of ten.
  ASSERT_EQ(ticks.size(), 5U);
  const double bar = (ticks.back() - ticks.front()) / 4.0 * 5.0;
  EXPECT_NEAR(ticks.back(), SIZE - 0.125 * SIZE - 7.5 - 0.301 * bar / 5, 2);
}

TEST_F(Legend, ShowsAsManyNumbersAsFitAndStandsTheSenseless) {
  attributes.setNumberOfLabels(1000000);
  const auto ticks = darkRuns(render(), 95);
  EXPECT_GT(ticks.size(), 8U);
  EXPECT_LT(ticks.size(), 15U);
  attributes.setLabelFormat("%s%n");
  attributes.setTitle("\xff\xfe $x$ \n" + std::string(100000, 'W'));
  legend.getTextAttributes().setFontSize(1e300);
  EXPECT_GT(countPixels(render(), WHITE), 0);
  table.setScalarRange({5, 5});
  legend.getTextAttributes().setFontSize(NAN);
  EXPECT_GT(countPixels(render(), {255, 0, 0}), 100);
  attributes.setSize({NAN, 1});
  EXPECT_EQ(countPixels(render(), WHITE), SIZE * SIZE);
}

TEST_F(Legend, WritesInTheColourOfItsText) {
  legend.getTextAttributes().setForegroundColor(0xFF00FFFF);
  const Picture picture = render();
  EXPECT_GT(countPixels(picture, {255, 0, 255}, 40), 100);
  EXPECT_EQ(countPixels(picture, BLACK, 40), 0);
}

}  // namespace
