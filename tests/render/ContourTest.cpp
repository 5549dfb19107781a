#include "render/RenderScene.h"

#include <gtest/gtest.h>

namespace {

using Pixel = Picture::Pixel;

constexpr int SIZE = RenderScene::SIZE;
constexpr Pixel GREEN = {0, 255, 0};

TEST(Contour, IsTheBorderAndTheSharpEdges) {
  // Three strips side by side, the second with points of its own at the same
  // places as the first's. The third bends down by 45 degrees.
  const auto surface = makePolyData({{-0.8F, -0.5F, 0},
                                     {-0.3F, -0.5F, 0},
                                     {-0.3F, 0.5F, 0},
                                     {-0.8F, 0.5F, 0},
                                     {-0.3F, -0.5F, 0},
                                     {0.2F, -0.5F, 0},
                                     {0.2F, 0.5F, 0},
                                     {-0.3F, 0.5F, 0},
                                     {0.7F, -0.5F, -0.5F},
                                     {0.7F, 0.5F, -0.5F}},
                                    {.polys = {{0, 1, 2, 3}, {4, 5, 6, 7}}, .strips = {{5, 8, 6, 9}}});
  for (const bool hasFaces : {true, false}) {
    SCOPED_TRACE(hasFaces);
    RenderScene scene;
    auto& drawable = scene.addSurface(surface, {1, 0, 0});
    drawable.getAttributes<lum::SurfaceAttributes>().setShaded(hasFaces);
    drawable.getAttributes<lum::MeshAttributes>().setMeshColor({0, 1, 0});
    drawable.getAttributes<lum::LineAttributes>().setLineWidth(3);
    EXPECT_EQ(countPixels(scene.render(), GREEN), 0);
    drawable.getAttributes<lum::ContourAttributes>().setContourVisible(true);
    const Picture picture = scene.render();
    const auto isGreen = [&](double x, double y) {
      return picture.at(static_cast<int>((x + 1) / 2 * SIZE), static_cast<int>((1 - y) / 2 * SIZE)) == GREEN;
    };
    EXPECT_TRUE(isGreen(-0.8, 0.1)) << "border";
    EXPECT_TRUE(isGreen(0.7, 0.1)) << "border";
    EXPECT_TRUE(isGreen(-0.5, 0.5)) << "border";
    EXPECT_TRUE(isGreen(0.2, 0.1)) << "bend";
    EXPECT_FALSE(isGreen(-0.3, 0.1)) << "two points at one place";
    EXPECT_FALSE(isGreen(-0.55, 0)) << "a diagonal";
  }
}

}  // namespace
