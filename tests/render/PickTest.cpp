#include "render/SceneWindow.h"

#include <vtkPointData.h>
#include <vtkPoints.h>

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <optional>
#include <random>

namespace vemo {

namespace {

using Point = Vector3;

/// A cell and a point.
using Found = std::pair<vtkIdType, vtkIdType>;
constexpr Found NOTHING{-9, -9};

class PickingTest : public testing::Test {
 protected:
  /// What is seen at a place of the picture, both from -1 to 1.
  std::optional<Pick> pick(double x, double y) {
    if (!_window) {
      _window.emplace(scene);
    }
    return _window->renderer.pick({(x + 1) / 2 * SIZE, (y + 1) / 2 * SIZE});
  }

  Found cellAndPoint(double x, double y) {
    const auto found = pick(x, y);
    return found ? Found(found->cell, found->point) : NOTHING;
  }

  RenderScene scene;

 private:
  std::optional<SceneWindow> _window;
};

void expectNear(const Point& found, const Point& expected, double tolerance = 1e-6) {
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(found[i], expected[i], tolerance) << i;
  }
}

TEST_F(PickingTest, FindsTheNearestFace) {
  const auto& far = scene.addSurface(makeRectangle(-0.8F, 0.4F, -0.5F, 0.5F, -1), {1, 0, 0});
  const auto& near = scene.addSurface(makeRectangle(0, 0.8F, -0.5F, 0.5F, 1), {0, 1, 0});
  const auto found = pick(0.1, -0.2);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->drawable, &near);
  EXPECT_EQ(found->node, near.getNodes()[0].get());
  EXPECT_EQ(found->cell, 0);
  EXPECT_EQ(found->point, 0);
  expectNear(found->position, {0.1, -0.2, 1});
  expectNear(found->pointPosition, {0, -0.5, 1});
  ASSERT_TRUE(pick(-0.1, 0));
  EXPECT_EQ(pick(-0.1, 0)->drawable, &far);
  EXPECT_FALSE(pick(0.1, 0.6));
  EXPECT_FALSE(pick(1.5, 0)) << "outside the window";
}

TEST_F(PickingTest, NumbersCellsOfAllKinds) {
  const auto mixed = makePolyData(
      flat({-0.9F, 0.8F,  -0.5F, 0.8F,  -0.9F, 0.4F,  -0.5F, 0.4F,                 // lines
            0,     0,     0.4F,  0,     0.4F,  0.4F,  0.2F,  0.1F,  0,     0.4F,   // polygon, notched on top
            -0.9F, -0.9F, -0.9F, -0.5F, -0.5F, -0.9F, -0.5F, -0.5F, -0.1F, -0.9F,  // strip
            0.8F,  -0.8F}),                                                        // vertex
      {.verts = {{14}},
       .lines = {{0, 1}, {2, 3}},
       // Two triangles of its fan cover the notch.
       .polys = {{8, 4, 5, 6, 7}},
       .strips = {{9, 10, 11, 12, 13}}});
  scene.addSurface(mixed, {1, 1, 1});
  struct {
    double x, y;
    Found expected;
    const char* where;
  } const cases[] = {{0.8, -0.79, {0, 14}, "beside a vertex"},
                     {-0.8, 0.8, {1, 0}, "on a line"},
                     {-0.55, 0.41, {2, 3}, "beside a line"},
                     {-0.55, 0.5, NOTHING, "far from a line"},
                     {-0.45, 0.8, NOTHING, "beyond its end"},
                     {0.05, 0.3, {3, 8}, "left of the notch"},
                     {0.35, 0.3, {3, 6}, "right of the notch"},
                     {0.2, 0.3, NOTHING, "in the notch"},
                     {-0.85, -0.6, {4, 10}, "at the begin of the strip"},
                     {-0.2, -0.85, {4, 13}, "at the end of the strip"}};
  for (const auto& [x, y, expected, where] : cases) {
    EXPECT_EQ(cellAndPoint(x, y), expected) << where;
  }
}

TEST_F(PickingTest, ReadsWideNumbersAndFindsNoGapBetweenTriangles) {
  auto square = makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F);
  vtkNew<vtkPoints> points;
  points->SetDataTypeToDouble();
  points->DeepCopy(square->GetPoints());
  square->SetPoints(points);
  square->GetPolys()->ConvertTo64BitStorage();
  scene.addSurface(square, {1, 1, 1});
  // On the diagonal, from corner to corner.
  for (int i = -49; i <= 49; ++i) {
    EXPECT_TRUE(pick(0.01 * i, 0.01 * i)) << i;
  }
}

TEST_F(PickingTest, FindsLinesAndPointsBeforeTheFacesThatTheyLieOn) {
  const auto& wall = scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 1, 1});
  scene.add<lum::PolyLineDrawable>(
      makePolyData({{-0.5F, -0.5F, -0.2F}, {0.5F, -0.5F, -0.2F}}, {.lines = {{0, 1}}}));
  const auto& line =
      scene.add<lum::PolyLineDrawable>(makePolyData(flat({-0.5F, 0, 0.5F, 0}), {.lines = {{0, 1}}}));
  const auto& points =
      scene.add<lum::PointSphereDrawable>(makePolyData(flat({0, 0.5F, NAN, 0, 0.5F, 0.5F}), {}));
  EXPECT_EQ(pick(0.2, 0.02)->drawable, &line);
  EXPECT_NE(pick(0.2, 0.2)->drawable, &line);
  EXPECT_EQ(pick(0.2, -0.5)->drawable, &wall) << "in front of another line";
  const auto point = pick(0.5, 0.51);
  EXPECT_EQ(point->drawable, &points);
  EXPECT_EQ(point->cell, -1) << "no cell names it";
  EXPECT_EQ(point->point, 2);
  expectNear(point->pointPosition, {0.5, 0.5, 0});
}

TEST_F(PickingTest, LooksThroughSurfacesThatShowTheirEdgesOnly) {
  const auto& behind = scene.addSurface(makeRectangle(-1, 1, -1, 1, -1), {1, 1, 1});
  auto& wires = scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {1, 1, 1});
  wires.getAttributes<lum::SurfaceAttributes>().setShaded(false);
  wires.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  EXPECT_EQ(pick(0, 0)->drawable, &behind);
  EXPECT_EQ(pick(0, 0.5)->drawable, &wires);
  EXPECT_EQ(pick(-0.5, 0)->drawable, &wires) << "the last edge closes the polygon";
}

TEST_F(PickingTest, FindsWhatATransformShows) {
  auto& surface = scene.addSurface(makeRectangle(0, 0.1F, 0, 0.1F), {1, 1, 1});
  auto& repeat = setTransform<lum::PeriodicRepeatTransform>(surface);
  repeat.setRotationAngle(std::numbers::pi / 2);
  repeat.setRotationAxis({0, 0, 1});
  repeat.setScale({2, 2, 1});
  repeat.setNumRepeats(3);
  const auto third = pick(-0.3, -0.3);
  ASSERT_TRUE(third);
  EXPECT_EQ(third->point, 2);
  expectNear(third->position, {-0.3, -0.3, 0});
  expectNear(third->pointPosition, {-0.4, -0.4, 0});
  EXPECT_FALSE(pick(0.3, -0.3));
}

TEST_F(PickingTest, FindsNothingThatIsCutAwayOrHidden) {
  const auto& behind = scene.addSurface(makeRectangle(-1, 1, -1, 1, -1), {1, 1, 1});
  const auto& cut = scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F, 0.5F), {1, 1, 1});
  auto& hidden = scene.addSurface(makeRectangle(-1, 1, -1, 1, 1), {1, 1, 1});
  hidden.getBaseAttributes().setVisibility(false, false);
  scene.clip({1, 0, 0}, {0, 0, 0});
  EXPECT_EQ(pick(0.2, 0)->drawable, &cut);
  EXPECT_FALSE(pick(-0.2, 0));
  EXPECT_EQ(pick(0.7, 0)->drawable, &behind);
}

TEST_F(PickingTest, FindsNothingThatIsNotDrawn) {
  scene.clip({0, 0, 1}, {0, 0, 0});
  // Each beside something that is seen: meshes are not even searched where nothing is near.
  for (const auto& [x, z] : {std::pair(-0.9F, 6.0F), std::pair(-0.5F, -1.0F)}) {
    scene.addSurface(makePolyData({{x, 0.7F, z},
                                   {x + 0.2F, 0.7F, z},
                                   {x + 0.2F, 0.9F, z},
                                   {x + 0.25F, 0.7F, 0.1F},
                                   {x + 0.3F, 0.7F, 0.1F},
                                   {x + 0.3F, 0.9F, 0.1F}},
                                  {.polys = {{0, 1, 2}, {3, 4, 5}}}),
                     {1, 1, 1});
  }
  scene.addSurface(
      makePolyData(flat({0, 0.5F, 0.2F, 0.5F, 0.2F, 0.9F, NAN, NAN, 0.25F, 0.5F, 0.45F, 0.5F, 0.45F, 0.9F}),
                   {.polys = {{0, 1, 2, 3}, {4, 5, 6}}}),
      {1, 1, 1});
  scene.addSurface(makeRectangle(1.2F, 1.6F, 0.4F, 0.6F), {1, 1, 1});
  auto& wires = scene.addSurface(
      makePolyData(flat({-0.9F, -0.9F, -0.8F, -0.9F, -0.8F, -0.8F, 0, -0.8F, 0.1F, -0.9F, 0.1F, -0.8F}),
                   {.polys = {{0, 1, 2}, {}, {3, 4, 5}}}),
      {1, 1, 1});
  wires.getAttributes<lum::SurfaceAttributes>().setShaded(false);
  wires.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  scene.add<lum::PolyLineDrawable>(makePolyData({{-0.5F, 0, 0}, {-0.5F, 0, 1}}, {.lines = {{0, 1}}}));
  scene.add<lum::PointSphereDrawable>(makePolyData(flat({0.95F, -0.95F}), {}))
      .getAttributes<lum::PointSizeAttributes>()
      .setPointSize(4000);
  struct {
    double x, y;
    bool isFound;
    const char* where;
  } const cases[] = {{-0.75, 0.75, false, "behind the camera"},
                     {1.4, 0.5, false, "beside the view"},
                     {-0.35, 0.75, false, "behind a plane"},
                     {0.17, 0.7, false, "a polygon with a corner that is not a number"},
                     {0.4, 0.6, true, "one beside it"},
                     {-0.85, -0.9, true, "the edge of a polygon"},
                     {-0.4, -0.8, false, "between polygons, where one is that has no corners"},
                     {-0.5, 0, true, "a line that is seen from its end"},
                     {0.3, -0.95, true, "a large point"},
                     {-0.05, -0.95, false, "where it would be if it were as large as it says"}};
  for (const auto& [x, y, isFound, where] : cases) {
    EXPECT_EQ(pick(x, y).has_value(), isFound) << where;
  }
}

/// Meshes of any shape, seen in perspective, each in its own colour.
TEST_F(PickingTest, FindsWhatThePictureShows) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> place(-1.0F, 1.0F);
  std::vector<const lum::Drawable*> drawables;
  for (int i = 0; i < 60; ++i) {
    const bool isStrip = i % 2 == 0;
    std::vector<std::array<float, 3>> points(5);
    for (auto& point : points) {
      point = {place(random), place(random), place(random)};
    }
    const auto geometry = makePolyData(
        points, isStrip ? Cells{.strips = {{0, 1, 2, 3, 4}}} : Cells{.polys = {{0, 1, 2}, {2, 3, 4}}});
    auto& surface = scene.addSurface(geometry, {(i + 1) * 4 / 255.0, 0, 0});
    auto& material = surface.getAttributes<lum::MaterialAttributes>();
    material.setAmbient(1);
    material.setDiffuse(0);
    drawables.push_back(&surface);
  }
  auto& camera = scene.canvas().getCameraAttributes();
  camera.setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
  camera.setPosition({3, 2, 4});
  const Picture picture = SceneWindow(scene).draw();
  int wrong = 0;
  int seen = 0;
  for (int row = 2; row < SIZE; row += 5) {
    for (int column = 2; column < SIZE; column += 5) {
      const auto found = pick(2 * (column + 0.5) / SIZE - 1, 1 - 2 * (row + 0.5) / SIZE);
      const int red = picture.at(column, row)[0];
      const auto* const shown = red < 4 ? nullptr : drawables[static_cast<std::size_t>(red / 4 - 1)];
      seen += shown != nullptr ? 1 : 0;
      wrong += (found ? found->drawable : nullptr) == shown ? 0 : 1;
    }
  }
  EXPECT_GT(seen, 1000);
  // Where edges meet the middle of a pixel, rounding decides.
  EXPECT_LE(wrong, 2);
}

}  // namespace

}  // namespace vemo
