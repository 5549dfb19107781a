#include "render/RenderScene.h"
#include <vemo/render/RenderErrors.h>
#include <vemo/scenegraph/transforms/Transform.h>

#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace vemo {

namespace {

using Pixel = Picture::Pixel;
using Color = Vector<3, double>;

constexpr int SIZE = RenderScene::SIZE;
constexpr Pixel RED = {255, 0, 0};
constexpr double NAN_D = std::numeric_limits<double>::quiet_NaN();
constexpr double QUARTER = std::numbers::pi / 2;

template <class Transform>
Transform& setTransform(lum::Drawable& drawable) {
  lum::Ptr<Transform> transform(new Transform(lum::ClassNameNodeInitializer(Transform::getClassName())));
  drawable.getBaseAttributes().setTransform(transform.get());
  return *transform;
}

/// The bounds of what is red, in model coordinates: left, right, bottom, top.
using Box = std::array<double, 4>;
Box redBox(const Picture& picture) {
  Box box{9, -9, 9, -9};
  for (int row = 0; row < SIZE; ++row) {
    for (int column = 0; column < SIZE; ++column) {
      if (picture.at(column, row) == RED) {
        box[0] = std::min(box[0], 2.0 * column / SIZE - 1);
        box[1] = std::max(box[1], 2.0 * (column + 1) / SIZE - 1);
        box[2] = std::min(box[2], 1 - 2.0 * (row + 1) / SIZE);
        box[3] = std::max(box[3], 1 - 2.0 * row / SIZE);
      }
    }
  }
  return box;
}

void expectBox(const Box& seen, const Box& expected) {
  for (std::size_t i = 0; i < seen.size(); ++i) {
    EXPECT_NEAR(seen[i], expected[i], 0.011) << i;
  }
}

TEST(Transform, StandsWhatIsSenseless) {
  const Box untouched = {0, 0.4, 0, 0.2};
  struct {
    const char* name;
    Color axis, scale, translation;
    Box box;
  } const cases[] = {{"no scale, no axis", {}, {}, {}, untouched},
                     {"a scale to nothing", {0, 0, 1}, {1, 1, 0}, {}, {9, -9, 9, -9}},
                     {"what is not a number", {0, 0, 1}, {1, 1, 1}, {NAN_D, 0, 0}, untouched}};
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(0, 0.4F, 0, 0.2F), {1, 0, 0});
  auto& transform = setTransform<lum::SimpleTransform>(surface);
  transform.setRotationAngle(QUARTER);
  for (const auto& [name, axis, scale, translation, box] : cases) {
    SCOPED_TRACE(name);
    transform.setRotationAxis(axis);
    transform.setScale(scale);
    transform.setTranslation(translation);
    expectBox(redBox(scene.render()), box);
  }
  setTransform<lum::SymmetricTransform>(surface).setPlane({0, 0, 0, 1});
  expectBox(redBox(scene.render()), untouched);
}

TEST(Transform, NestsAndLeavesClippingPlanesWhereTheyAre) {
  RenderScene scene;
  auto& outer = scene.collectionIn(scene.drawables());
  setTransform<lum::SimpleTransform>(outer).setTranslation({-0.5, 0, 0});
  auto& surface = scene.add<lum::SurfaceDrawable>(makeRectangle(0, 0.4F, 0, 0.2F), outer);
  surface.getColorAttributes()->setColor(Color{1, 0, 0}, false);
  setTransform<lum::SimpleTransform>(surface).setScale({2, 2, 1});
  expectBox(redBox(scene.render()), {-0.5, 0.3, 0, 0.4});
  // The last plane is one too many for the mapper.
  for (const double x : {-0.3, -0.9, -0.9, -0.9, -0.9, -0.9, -0.1}) {
    lum::Ptr<lum::Plane> plane(new lum::Plane(lum::ClassNameNodeInitializer(lum::Plane::getClassName())));
    plane->setNormal({1, 0, 0});
    plane->setOrigin({x, 0, 0});
    scene.canvas().getClipPlanesAttributes().getClippingPlanes().addNode(*plane);
    expectBox(redBox(scene.render()), {x > -0.2 ? -0.1 : -0.3, 0.3, 0, 0.4});
  }
}

TEST(Transform, RepeatsEachAgainstTheOneBefore) {
  constexpr std::int32_t VERY_OFTEN = std::numeric_limits<std::int32_t>::max();
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(0, 0.1F, 0, 0.1F), {1, 0, 0});
  auto& repeat = setTransform<lum::PeriodicRepeatTransform>(surface);
  repeat.setTranslation({0.2, 0, 0});
  for (const auto& [count, shown] : {std::pair(1, 1), {0, 1}, {-5, 1}, {3, 3}, {VERY_OFTEN, 5}}) {
    repeat.setNumRepeats(count);
    EXPECT_NEAR(countPixels(scene.render(), RED), shown * 15 * 15, 2) << count;
  }
  // Four times a quarter turn, the last of which half as large each time.
  repeat.setTranslation({});
  repeat.setRotationAngle(QUARTER);
  repeat.setNumRepeats(3);
  expectBox(redBox(scene.render()), {-0.1, 0.1, -0.1, 0.1});
  repeat.setScale({2, 2, 1});
  expectBox(redBox(scene.render()), {-0.4, 0.1, -0.4, 0.2});
  repeat.setNumRepeats(VERY_OFTEN);
  EXPECT_EQ(scene.render().at(75, 75), RED) << "grown beyond all bounds";
}

TEST(Transform, FramesWhatIsRepeated) {
  RenderScene scene;
  scene.canvas().getCameraAttributes().setParallelScale(std::nullopt);
  auto& surface = scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0});
  auto& repeat = setTransform<lum::PeriodicRepeatTransform>(surface);
  repeat.setTranslation({0, 2, 0});
  repeat.setNumRepeats(6);
  const Picture picture = scene.render();
  const Box box = redBox(picture);
  EXPECT_NEAR(box[2], -box[3], 0.02);
  EXPECT_GT(box[3], 0.9);
  EXPECT_NEAR(countPixels(picture, RED), 6 * (SIZE / 11.1) * (SIZE / 11.1), 500);
}

TEST(Transform, DrawsTransformedPiecesTogetherAsAlone) {
  const auto fill = [](RenderScene& scene, int pieces) {
    for (int i = 0; i < pieces; ++i) {
      const float x = 0.1F * static_cast<float>(i % 8);
      auto& collection = scene.collectionIn(scene.drawables());
      auto& surface = scene.add<lum::SurfaceDrawable>(makeRectangle(x, x + 0.05F, 0, 0.1F), collection);
      surface.getColorAttributes()->setColor(Color{1, 0.1 * (i % 8), 0}, false);
    }
    setTransform<lum::SymmetricTransform>(scene.drawables()).setPlane({1, 0, 0, 0});
  };
  RenderScene few;
  RenderScene many;
  fill(few, 8);
  fill(many, 40);
  EXPECT_EQ(countDifferences(few.render(), many.render(), 1), 0);
}

TEST(Transform, BoundsRepeatsWithinRepeats) {
  RenderScene scene;
  lum::DrawableCollection* place = &scene.drawables();
  for (int i = 0; i < 5; ++i) {
    auto& repeat = setTransform<lum::PeriodicRepeatTransform>(*place);
    repeat.setNumRepeats(100);
    repeat.setTranslation({i == 0 ? 0.1 : 0.0, i == 1 ? 0.1 : 0.0, i > 1 ? 0.1 : 0.0});
    place = &scene.collectionIn(*place);
  }
  auto& surface = scene.add<lum::SurfaceDrawable>(makeRectangle(0, 0.05F, 0, 0.05F), *place);
  surface.getColorAttributes()->setColor(Color{1, 0, 0}, false);
  EXPECT_GT(countPixels(scene.render(), RED), 40);
  for (int i = 0; i < 30; ++i) {
    scene.add<lum::SurfaceDrawable>(makeRectangle(0, 0.05F, 0, 0.05F), *place);
  }
  EXPECT_THROW(scene.render(), RenderError);
}

}  // namespace

}  // namespace vemo
