#include "render/RenderScene.h"
#include <vemo/scenegraph/drawables/Overlays.h>

#include <cmath>
#include <gtest/gtest.h>

namespace vemo {

namespace {

using Pixel = Picture::Pixel;

constexpr int SIZE = RenderScene::SIZE;
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

}  // namespace

}  // namespace vemo
