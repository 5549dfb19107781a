#include "render/RenderScene.h"

#include <vtkPointData.h>

#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr int SIZE = RenderScene::SIZE;

TEST(PointSize, FollowsAnArray) {
  struct {
    const char* name;
    lum::PointScaleMode mode;
    bool isInPixels;
    std::string scalars;
    Vector<2, double> sizes;
    // The widths of the points of value 1, 10, 100 and none, in pixels.
    int one, ten, hundred, none;
  } const cases[] = {{"constant", lum::PointScaleMode::CONSTANT, true, "s", {4, 20}, 9, 9, 9, 9},
                     {"linear", lum::PointScaleMode::LINEAR, true, "s", {4, 20}, 4, 5, 20, 4},
                     {"logarithmic", lum::PointScaleMode::LOG10, true, "s", {4, 20}, 4, 12, 20, 4},
                     {"in model units", lum::PointScaleMode::LINEAR, false, "s", {0.04, 0.16}, 6, 7, 24, 6},
                     {"by no array", lum::PointScaleMode::LINEAR, true, "t", {4, 20}, 9, 9, 9, 9}};
  RenderScene scene;
  const auto geometry =
      makePolyData({{-0.6F, 0, 0}, {-0.2F, 0, 0}, {0.2F, 0, 0}, {0.6F, 0, 0}}, {.verts = {{0, 1, 2}, {3}}});
  geometry->GetPointData()->AddArray(makeArray("s", {1, 10, 100, NAN}));
  auto& points = scene.add<lum::PointSphereDrawable>(geometry);
  points.getAttributes<lum::PointSizeAttributes>().setPointSize(9);
  auto& scale = points.getAttributes<lum::PointScaleAttributes>();
  scale.setScalarRange({1, 100});
  for (const auto& [name, mode, isInPixels, scalars, sizes, one, ten, hundred, none] : cases) {
    SCOPED_TRACE(name);
    scale.setScaleMode(mode);
    scale.setPixelSize(isInPixels);
    scale.setScalarName(scalars);
    scale.setMapToRange(sizes);
    const Picture picture = scene.render();
    int column = 30;
    for (const int expected : {one, ten, hundred, none}) {
      int width = 0;
      for (int i = 0; i < 60; ++i, ++column) {
        width += picture.at(column, SIZE / 2)[0] > 60 ? 1 : 0;
      }
      EXPECT_NEAR(width, expected, 2);
    }
  }
}

}  // namespace
