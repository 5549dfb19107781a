#include "render/RenderScene.h"
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/transforms/PeriodicRepeatTransform.h>
#include <vemo/scenegraph/transforms/SimpleTransform.h>
#include <vemo/scenegraph/transforms/SymmetricTransform.h>

#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace vemo {

namespace {

using Color = RenderScene::Color;

constexpr int SIZE = RenderScene::SIZE;
constexpr Picture::Pixel RED = {255, 0, 0};
constexpr Color REDDEST = {1, 0, 0};
constexpr double NAN_D = std::numeric_limits<double>::quiet_NaN();
constexpr double QUARTER = std::numbers::pi / 2;
constexpr std::int32_t VERY_OFTEN = std::numeric_limits<std::int32_t>::max();

/// Where what is red is expected to be seen, in model coordinates.
struct Place {
  double left, right, bottom, top;
};

void expectRed(const RenderScene& scene, const Place& place) {
  const PixelBox box = boxWhere(scene.render(), [](const auto& pixel) { return pixel == RED; });
  const auto expectNear = [](int seen, double expected) {
    EXPECT_NEAR(seen, (expected + 1) / 2 * SIZE, 1.6);
  };
  expectNear(box.left, place.left);
  expectNear(box.right, place.right);
  expectNear(box.bottom, place.bottom);
  expectNear(box.top, place.top);
}

TEST(Transform, StandsWhatIsSenseless) {
  const Place untouched = {0, 0.4, 0, 0.2};
  const Place nowhere = {-1, -1, -1, -1};
  struct {
    const char* name;
    Color axis, scale, translation;
    Place place;
  } const cases[] = {{"no scale, no axis", {}, {}, {}, untouched},
                     {"a scale to nothing", {0, 0, 1}, {1, 1, 0}, {}, nowhere},
                     {"what is not a number", {0, 0, 1}, {1, 1, 1}, {NAN_D, 0, 0}, untouched}};
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(0, 0.4F, 0, 0.2F), REDDEST);
  auto& transform = setTransform<lum::SimpleTransform>(surface);
  transform.setRotationAngle(QUARTER);
  for (const auto& [name, axis, scale, translation, place] : cases) {
    SCOPED_TRACE(name);
    transform.setRotationAxis(axis);
    transform.setScale(scale);
    transform.setTranslation(translation);
    expectRed(scene, place);
  }
  setTransform<lum::SymmetricTransform>(surface).setPlane({0, 0, 0, 1});
  expectRed(scene, untouched);
}

TEST(Transform, NestsAndLeavesClippingPlanesWhereTheyAre) {
  RenderScene scene;
  auto& outer = scene.collectionIn(scene.drawables());
  setTransform<lum::SimpleTransform>(outer).setTranslation({-0.5, 0, 0});
  auto& surface = scene.addSurface(makeRectangle(0, 0.4F, 0, 0.2F), REDDEST, outer);
  setTransform<lum::SimpleTransform>(surface).setScale({2, 2, 1});
  expectRed(scene, {-0.5, 0.3, 0, 0.4});
  // The last plane is one too many for the mapper.
  for (const double x : {-0.3, -0.9, -0.9, -0.9, -0.9, -0.9, -0.1}) {
    scene.clip({1, 0, 0}, {x, 0, 0});
    expectRed(scene, {x > -0.2 ? -0.1 : -0.3, 0.3, 0, 0.4});
  }
}

TEST(Transform, RepeatsEachAgainstTheOneBefore) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(0, 0.1F, 0, 0.1F), REDDEST);
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
  expectRed(scene, {-0.1, 0.1, -0.1, 0.1});
  repeat.setScale({2, 2, 1});
  expectRed(scene, {-0.4, 0.1, -0.4, 0.2});
  repeat.setNumRepeats(VERY_OFTEN);
  EXPECT_EQ(at(scene.render(), -0.5, 0.5), RED) << "grown beyond all bounds";
}

TEST(Transform, FramesWhatIsRepeated) {
  RenderScene scene;
  scene.canvas().getCameraAttributes().setParallelScale(std::nullopt);
  auto& repeat =
      setTransform<lum::PeriodicRepeatTransform>(scene.addSurface(makeRectangle(0, 1, 0, 1), REDDEST));
  repeat.setTranslation({0, 2, 0});
  repeat.setNumRepeats(6);
  const Picture picture = scene.render();
  const PixelBox box = boxWhere(picture, [](const auto& pixel) { return pixel == RED; });
  EXPECT_NEAR(box.bottom, SIZE - box.top, 3);
  EXPECT_GT(box.top, 0.95 * SIZE);
  EXPECT_NEAR(countPixels(picture, RED), 6 * (SIZE / 11.1) * (SIZE / 11.1), 500);
}

TEST(Transform, DrawsTransformedMeshesTogetherAsAlone) {
  const auto draw = [](int meshes) {
    RenderScene scene;
    for (int i = 0; i < meshes; ++i) {
      const float x = 0.1F * static_cast<float>(i % 8);
      scene.addSurface(makeRectangle(x, x + 0.05F, 0, 0.1F), {1, 0.1 * (i % 8), 0},
                       scene.collectionIn(scene.drawables()));
    }
    setTransform<lum::SymmetricTransform>(scene.drawables()).setPlane({1, 0, 0, 0});
    return scene.render();
  };
  EXPECT_EQ(countDifferences(draw(8), draw(40), 1), 0);
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
  const auto square = makeRectangle(0, 0.05F, 0, 0.05F);
  scene.addSurface(square, REDDEST, *place);
  EXPECT_GT(countPixels(scene.render(), RED), 40);
  for (int i = 0; i < 30; ++i) {
    scene.addSurface(square, REDDEST, *place);
  }
  EXPECT_THROW(scene.render(), SceneTooLarge);
}

}  // namespace

}  // namespace vemo
