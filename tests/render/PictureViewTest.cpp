#include "render/SceneWindow.h"
#include <vemo/render/RenderErrors.h>
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/scenegraph/edit/Items.h>
#include <vemo/scenegraph/edit/View.h>

#include <cmath>
#include <gtest/gtest.h>
#include <utility>

namespace vemo {

namespace {

TEST(PictureViewTest, FramesWhatIsRepeated) {
  RenderScene scene;
  scene.canvas().getCameraAttributes().setParallelScale(std::nullopt);
  repeat(scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0}), {0, 2, 0}, 6);
  const PixelBox box = boxOf(scene.render(), RED);
  EXPECT_NEAR(box.bottom, SIZE - box.top, 3);
  EXPECT_GT(box.top, 0.95 * SIZE);
  EXPECT_NEAR(box.count, 6 * (SIZE / 11.1) * (SIZE / 11.1), 500);
}

TEST(PictureViewTest, LooksThroughTheCameraOrFramesTheScene) {
  using Mode = lum::CameraAttributes::ProjectionMode;
  struct {
    const char* name;
    Vector3 position, viewUp;
    Mode mode;
    double scale;
    // Where the green corner of the red square is expected to be seen, and
    // whether the square fills the picture (or stands out in its middle).
    double x, y;
    bool isFilled;
  } const cases[] = {
      {"parallel", {0, 0, 9}, {0, 1, 0}, Mode::PARALLEL, 10, 0.75, 0.75, true},
      {"parallel, almost on it", {0, 0, 0.0101}, {0, 1, 0}, Mode::PARALLEL, 10, 0.75, 0.75, true},
      {"upside down", {0, 0, 9}, {0, -1, 0}, Mode::PARALLEL, 10, -0.75, -0.75, true},
      {"far", {0, 0, 9}, {0, 1, 0}, Mode::PARALLEL, 20, 0.375, 0.375, false},
      {"perspective", {0, 0, 60}, {0, 1, 0}, Mode::PERSPECTIVE, 0, 0.47, 0.47, false},
      {"from below", {0, 0, -60}, {0, 1, 0}, Mode::PERSPECTIVE, 0, -0.47, 0.47, false},
      {"up along the sight", {0, 0, 9}, {0, 0, 2}, Mode::PARALLEL, 20, 0.375, 0.375, false},
      {"no up", {0, 0, 9}, {0, 0, 0}, Mode::PARALLEL, 20, 0.375, 0.375, false},
      {"no scale", {0, 0, 9}, {0, 1, 0}, Mode::PARALLEL, 0, 0.53, 0.53, false},
      {"infinite scale", {0, 0, 9}, {0, 1, 0}, Mode::PARALLEL, INFINITY, 0.53, 0.53, false},
      {"nowhere", {0, 0, 0}, {0, 1, 0}, Mode::PERSPECTIVE, 0, 0.53, 0.53, false},
      {"not a number", {NAN, 0, 1}, {0, 1, 0}, Mode::PERSPECTIVE, 0, 0.53, 0.53, false},
      {"never set", {0, 0, 1}, {0, 1, 0}, Mode::PERSPECTIVE, -1, 0.53, 0.53, false},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.name);
    RenderScene scene;
    scene.addSurface(makeRectangle(-10, 10, -10, 10), {1, 0, 0});
    scene.addSurface(makeRectangle(5, 10, 5, 10, 0.01F), {0, 1, 0});
    scene.addSurface(makeRectangle(5, 10, 5, 10, -0.01F), {0, 1, 0});
    auto& camera = scene.canvas().getCameraAttributes();
    camera.setPosition(expected.position);
    camera.setViewUp(expected.viewUp);
    camera.setProjectionMode(expected.mode);
    camera.setParallelScale(expected.scale < 0 ? std::optional<double>() : expected.scale);
    const Picture picture = scene.render();
    EXPECT_EQ(at(picture, expected.x, expected.y), GREEN);
    EXPECT_EQ(at(picture, -expected.x, expected.y), RED);
    EXPECT_EQ(at(picture, 0.99, -0.99), expected.isFilled ? RED : BLACK);
  }
}

TEST(PictureViewTest, ShowsWhatIsAtTheNearPlane) {
  for (const float far : {100.0F, 1000.0F, 9000.0F, 100'000.0F}) {
    for (const float near : {1.0F, 1.3F, 2.0F, 3.0F, 7.0F, 8.0F, 12.0F}) {
      SCOPED_TRACE(testing::Message() << near << " of " << far);
      RenderScene scene;
      auto& camera = scene.canvas().getCameraAttributes();
      camera.setPosition({0, 0, 0});
      camera.setFocalPoint({0, 0, -1});
      camera.setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
      scene.addSurface(makeRectangle(-far, far, -far, far, -far), {0, 1, 0});
      scene.addSurface(makeRectangle(-near, 0, -near, near, -near), {1, 0, 0});
      const bool isShown = near > LEAST_DEPTH * far;
      EXPECT_EQ(at(scene.render(), -0.5, 0), isShown ? RED : GREEN);
    }
  }
}

TEST(PictureViewTest, FitsTheModelOrAnItemFromAStandardView) {
  RenderScene scene;
  // As wide as seen from the front, four times as high as wide, far from the first.
  scene.addSurface(makePolyData({{10, 0, 0}, {11, 0, 0}, {11, 0, 4}, {10, 0, 4}}, {.polys = {{0, 1, 2, 3}}}),
                   {1, 0, 0});
  auto& square = scene.addSurface(
      makePolyData({{0, 0, 0}, {1, 0, 0}, {1, 0, 1}, {0, 0, 1}}, {.polys = {{0, 1, 2, 3}}}), {0, 1, 0});
  lum::setView(scene.node(), lum::StandardView::FRONT);
  RenderOptions options{.width = 210, .height = 105, .fitsModel = true};
  const PixelBox all = inkOn(renderPicture(scene.node(), options), BLACK);
  EXPECT_NEAR(all.width(), 200, 2);
  options.fitted = {&square};
  EXPECT_NEAR(inkOn(renderPicture(scene.node(), options), BLACK).height(), 100, 2);
  options = {.width = 105, .height = 210, .scale = 2.0, .fitted = {&square}};
  EXPECT_NEAR(inkOn(renderPicture(scene.node(), options), BLACK).width(), 200, 2) << "a narrow picture";
  lum::setShown(square, false);
  EXPECT_THROW(renderPicture(scene.node(), options), NothingToFit);
}

TEST(PictureViewTest, FitsASinglePoint) {
  using Mode = lum::CameraAttributes::ProjectionMode;
  RenderScene scene;
  auto& point = scene.add<lum::PointSphereDrawable>(makePolyData({{50, 0, 0}}, {.verts = {{0}}}), {1, 1, 1});
  for (const Mode mode : {Mode::PARALLEL, Mode::PERSPECTIVE}) {
    scene.canvas().getCameraAttributes().setProjectionMode(mode);
    const PixelBox box =
        inkOn(renderPicture(scene.node(), {.width = SIZE, .height = SIZE, .fitted = {&point}}), BLACK);
    EXPECT_GT(box.count, 0);
    EXPECT_NEAR((box.left + box.right) / 2.0, SIZE / 2.0, 2);
  }
}

TEST(PictureViewTest, FitsInPerspectiveToo) {
  RenderScene scene;
  // Two sides of a bar.
  auto& bar =
      scene.addSurface(makePolyData({{0, 0, 0}, {8, 0, 0}, {8, 0, 1}, {0, 0, 1}, {0, 1, 0}, {0, 1, 1}},
                                    {.polys = {{0, 1, 2, 3}, {0, 3, 5, 4}}}),
                       {0, 1, 0});
  const auto widthFrom = [&](const Vector3& position, RenderOptions options) {
    lum::setView(scene.node(), lum::Viewpoint{position, {0, 0, 0}, {0, 0, 1}, std::nullopt});
    options.fitted = {&bar};
    return inkOn(renderPicture(scene.node(), options), BLACK).width();
  };
  EXPECT_NEAR(widthFrom({0, -2, 0}, {.width = 210, .height = 105}), 200, 2);
  EXPECT_NEAR(widthFrom({0, -2, 0}, {.width = 105, .height = 210}), 100, 2);
  EXPECT_NEAR(widthFrom({0, -2, 0}, {.width = 210, .height = 105, .viewAngle = 120.0}), 200, 2);
  EXPECT_NEAR(widthFrom({-2, 0, 0}, {.width = 210, .height = 105}), 100, 2) << "along the bar";
  EXPECT_GT(widthFrom({-2, 0, 0}, {.width = 210, .height = 105, .viewAngle = 179.0}), 0) << "from close by";
}

TEST(PictureViewTest, ShowsAsMuchAsTheAngleOfTheViewSays) {
  RenderScene scene;
  scene.addSurface(makePolyData({{-1, 0, -1}, {1, 0, -1}, {1, 0, 1}, {-1, 0, 1}}, {.polys = {{0, 1, 2, 3}}}),
                   {0, 1, 0});
  lum::setView(scene.node(), lum::Viewpoint{{0, -2, 0}, {0, 0, 0}, {0, 0, 1}, std::nullopt});
  for (const auto& [width, height] : {std::pair(200, 100), std::pair(100, 200)}) {
    const RenderOptions options{.width = width, .height = height, .viewAngle = 90.0};
    EXPECT_NEAR(inkOn(renderPicture(scene.node(), options), BLACK).height(), 0.5 * height, 1);
  }
}

}  // namespace

}  // namespace vemo
