#include "render/RenderScene.h"
#include <vemo/scenegraph/coloring/ScalarAttributes.h>

#include <vtkCellData.h>

#include <cmath>
#include <gtest/gtest.h>

namespace vemo {

namespace {

constexpr int SIZE = RenderScene::SIZE;

constexpr int COLORS = 3;

/// Tables that cannot be used as they are still give different colours to different
/// values, those at their first end bluer.
TEST(ScalarColoring, IsMadeUpWhereItIsOfNoUse) {
  struct {
    const char* name;
    int count;
    Vector<2, double> range;
    lum::ScaleMode scale;
  } const cases[] = {{"no colours", 0, {0.5, 10}, lum::ScaleMode::LINEAR},
                     {"no colours, logarithmic", 0, {0.5, 10}, lum::ScaleMode::LOG10},
                     {"negative count", -3, {0.5, 10}, lum::ScaleMode::LINEAR},
                     {"count beyond the colours", 1000000, {0.5, 10}, lum::ScaleMode::LINEAR},
                     {"range reversed", COLORS, {10, 0.5}, lum::ScaleMode::LINEAR},
                     {"logarithm of zero", COLORS, {0, 10}, lum::ScaleMode::LOG10}};
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.name);
    RenderScene scene;
    // A low value on the left, a high one on the right, and colours from blue to red.
    const auto cells = makePolyData(flat({-1, -1, 0, -1, 1, -1, -1, 1, 0, 1, 1, 1}),
                                    {.polys = {{0, 1, 4, 3}, {1, 2, 5, 4}}});
    const bool isTurned = wanted.range[0] > wanted.range[1];
    cells->GetCellData()->AddArray(
        makeArray("pressure", isTurned ? std::vector<float>{12, 0.002F} : std::vector<float>{0.002F, 12}));
    auto& table = colorByArray(scene.addSurface(cells, {1, 1, 1}), "pressure", lum::DataLocation::CELLS,
                               {0, 0, 0.8, 1, 0, 0.8, 0, 1, 0.8, 0, 0, 1});
    table.setNumColor(wanted.count);
    table.setScalarRange(wanted.range);
    table.setScaleMode(wanted.scale);
    const Picture picture = scene.render();
    const auto left = at(picture, -0.8, 0);
    const auto right = at(picture, 0.8, 0);
    EXPECT_GT(left[2], left[0] + 100);
    EXPECT_GT(right[0], right[2] + 100);
  }
}

TEST(ScalarColoring, PutsARangeOfOneValueInTheMiddle) {
  for (const double value : {0.0, 0.1, -7e6}) {
    for (const auto scale : {lum::ScaleMode::LINEAR, lum::ScaleMode::LOG10}) {
      RenderScene scene;
      const auto cells = makePolyData(flat({-1, -1, 0, -1, 1, -1, -1, 1, 0, 1, 1, 1}),
                                      {.polys = {{0, 1, 4, 3}, {1, 2, 5, 4}}});
      // As a file has it: rounded.
      cells->GetCellData()->AddArray(makeArray(
          "pressure", {static_cast<float>(value), static_cast<float>(value + 1 + std::abs(value))}));
      auto& table = colorByArray(scene.addSurface(cells, {1, 1, 1}), "pressure", lum::DataLocation::CELLS,
                                 {0, 0, 1, 1, 0, 1, 0, 1, 1, 0, 0, 1});
      table.setScalarRange({value, value});
      table.setScaleMode(scale);
      const Picture picture = scene.render();
      EXPECT_EQ(at(picture, -0.5, 0), (Picture::Pixel{0, 255, 0})) << value;
      EXPECT_EQ(at(picture, 0.5, 0), (Picture::Pixel{255, 0, 0})) << value;
    }
  }
}

TEST(ScalarColoring, ColoursPlainlyWithoutTheArray) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  const auto count = [&] { return countPixels(scene.render(), {255, 0, 0}); };
  EXPECT_EQ(count(), SIZE * SIZE);
  surface.getAttributes<lum::ScalarAttributes>().getDataArray().setDataArrayName("gone");
  EXPECT_EQ(count(), SIZE * SIZE);
}

}  // namespace

}  // namespace vemo
