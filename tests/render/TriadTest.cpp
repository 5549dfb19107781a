#include "render/RenderScene.h"
#include "scenegraph/drawables/TriadDrawable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using Vector3 = Vector<3, double>;

constexpr int SIZE = RenderScene::SIZE;

/// Where, from the middle of a square part of a picture, pixels are of which one
/// channel (0 to 2) stands out: the mean of the places, x to the right and y
/// upwards.
Vector<2, double> meanPlace(const Picture& picture, std::size_t channel, int part) {
  Vector<2, double> sum;
  int count = 0;
  for (int row = SIZE - part; row < SIZE; ++row) {
    for (int column = 0; column < part; ++column) {
      const auto pixel = picture.at(column, row);
      const int most = std::max(pixel[(channel + 1) % 3], pixel[(channel + 2) % 3]);
      if (pixel[channel] > most + 60) {
        sum[0] += column + 0.5 - part / 2.0;
        sum[1] += SIZE - row - 0.5 - part / 2.0;
        ++count;
      }
    }
  }
  return count == 0 ? sum : Vector<2, double>{sum[0] / count, sum[1] / count};
}

TEST(Triad, TurnsWithTheModelsCamera) {
  struct {
    const char* name;
    Vector3 position, up;
    // Where the ends of the axes are seen: to the right and upwards.
    Vector<2, double> x, y, z;
  } const cases[] = {{"from the front", {0, 0, 5}, {0, 1, 0}, {1, 0}, {0, 1}, {0, 0}},
                     {"from behind", {0, 0, -5}, {0, 1, 0}, {-1, 0}, {0, 1}, {0, 0}},
                     {"from the right, z up", {5, 0, 0}, {0, 0, 1}, {0, 0}, {1, 0}, {0, 1}},
                     {"askew", {1, 1, 1}, {0, 0, 1}, {-0.707, -0.408}, {0.707, -0.408}, {0, 0.816}}};
  for (const auto& [name, position, up, x, y, z] : cases) {
    SCOPED_TRACE(name);
    RenderScene scene;
    auto& camera = scene.canvas().getCameraAttributes();
    camera.setPosition(position);
    camera.setViewUp(up);
    lum::SceneCanvas& corner = scene.node().getOrientationCanvas();
    corner.getBaseCanvasAttributes().setSize({0.5, 0.5});
    auto& view = corner.getCameraAttributes();
    view.setPosition({0, 0, -1});
    view.setProjectionMode(lum::CameraAttributes::ProjectionMode::PARALLEL);
    view.setParallelScale(2.2);
    auto& triad = corner.getDrawableCollection().findOrCreate<lum::TriadDrawable>("triad");
    triad.getTriadAttributes().setUseConstantPixelSize(false);
    triad.getTextAttributes().setForegroundColor(0xFFFFFFFF);
    triad.setCameraAttributes(&camera);
    const Picture picture = scene.render();
    const std::array<Vector<2, double>, 3> ends = {x, y, z};
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const auto seen = meanPlace(picture, axis, SIZE / 2);
      // The middle of an arrow, give or take what others hide of it.
      for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_NEAR(seen[i], ends[axis][i] * 1.5 * 0.6 * SIZE / 2 / 4.4, 6) << axis << i;
      }
    }
    EXPECT_GT(countPixels(picture, {255, 255, 255}, 60), 30) << "labels";
  }
}

TEST(Triad, StandsInTheModelAsLargeOnTheScreenAtEveryScale) {
  RenderScene scene;
  auto& triad = scene.drawables().findOrCreate<lum::TriadDrawable>("triad");
  triad.getTriadAttributes().setAxisLabelHeight(0.05);
  triad.getOrientationAttributes().setForwardVector({0, -2, 0});
  triad.getOrientationAttributes().setUpVector({3, 0, 0});
  for (const double scale : {1.0, 100.0}) {
    scene.canvas().getCameraAttributes().setParallelScale(scale);
    triad.getPositionAttributes().setPosition({-0.3 * scale, 0.2 * scale, 0}, false);
    const Picture picture = scene.render();
    // z points down, y to the right; x then comes out of the picture.
    const auto y = meanPlace(picture, 1, SIZE);
    const auto z = meanPlace(picture, 2, SIZE);
    EXPECT_NEAR(y[0], -45 + 27, 6) << scale;
    EXPECT_NEAR(y[1], 30, 4) << scale;
    EXPECT_NEAR(z[0], -45, 4) << scale;
    EXPECT_NEAR(z[1], 30 - 27, 6) << scale;
  }
  triad.getBaseAttributes().setVisibility(false, false);
  EXPECT_EQ(countPixels(scene.render(), {0, 0, 0}, 0), SIZE * SIZE);
}

TEST(Material, AnswersToLightAsItSays) {
  // Seen at half a right angle.
  const auto slope =
      makePolyData({{-1, -1, 0}, {1, -1, 2}, {1, 1, 2}, {-1, 1, 0}}, {.polys = {{0, 1, 2, 3}}});
  RenderScene scene;
  auto& surface = scene.addSurface(slope, {0.5, 0, 0});
  auto& material = surface.getAttributes<lum::MaterialAttributes>();
  struct {
    double ambient, diffuse, specular, power, red, blue;
  } const cases[] = {{0, 1, 0, 1, 0.3535, 0},    {0.4, 0, 0, 1, 0.2, 0}, {0, 0.5, 0, 1, 0.177, 0},
                     {0, 0, 1, 2, 0.5, 0.5},     {0, 1, 1, 0, 1, 1},     {7, NAN, 0, 1, 0.8535, 0},
                     {0.2, 0.6, 0, 50, 0.312, 0}};
  for (const auto& [ambient, diffuse, specular, power, red, blue] : cases) {
    material.setAmbient(ambient);
    material.setDiffuse(diffuse);
    material.setSpecular(specular);
    material.setSpecularPower(power);
    const auto pixel = scene.render().at(SIZE / 2, SIZE / 2);
    EXPECT_NEAR(pixel[0], 255 * red, 3) << ambient << diffuse << specular;
    EXPECT_NEAR(pixel[2], 255 * blue, 3) << ambient << diffuse << specular;
  }
}

}  // namespace
