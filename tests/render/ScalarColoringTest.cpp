#include "render/RenderScene.h"
#include <vemo/scenegraph/coloring/ScalarAttributes.h>

#include <vtkCellData.h>

#include <cmath>
#include <gtest/gtest.h>

namespace vemo {

namespace {

constexpr int SIZE = RenderScene::SIZE;

constexpr int COLORS = 3;

/// Tables that say nothing useful still give different colours to different
/// values, the low ones bluer.
TEST(ScalarColoring, IsMadeUpWhereItIsOfNoUse) {
  const double nan = std::nan("");
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
                     {"range not a number", COLORS, {nan, 10}, lum::ScaleMode::LINEAR},
                     {"logarithm of zero", COLORS, {0, 10}, lum::ScaleMode::LOG10}};
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.name);
    RenderScene scene;
    // A low value on the left, a high one on the right, and colours from blue to red.
    // Both are above 1: where a table cannot take a range, VTK's is from 0 to 1.
    const auto cells = makePolyData(flat({-1, -1, 0, -1, 1, -1, -1, 1, 0, 1, 1, 1}),
                                    {.polys = {{0, 1, 4, 3}, {1, 2, 5, 4}}});
    cells->GetCellData()->AddArray(makeArray("pressure", {2, 12}));
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
