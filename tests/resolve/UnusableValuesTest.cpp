// What is shown of scenes with values that nothing can be drawn with.

#include "support/FoundFindings.h"
#include "support/SceneBuilder.h"
#include <vemo/resolve/SceneResolver.h>
#include <vemo/resolve/SceneTooLarge.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkPointData.h>

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <numbers>

namespace vemo {

namespace {

constexpr double QUARTER = std::numbers::pi / 2;
constexpr std::int32_t VERY_OFTEN = std::numeric_limits<std::int32_t>::max();

/// A scene with a square whose low and high half have cell values 2 and 12.
class UnusableValuesTest : public testing::Test {
 protected:
  static vtkSmartPointer<vtkPolyData> makeSquare() {
    auto square = makePolyData(flat({0, 0, 1, 0, 1, 1, 0, 1}), {.polys = {{0, 1, 2}, {0, 2, 3}}});
    square->GetCellData()->AddArray(makeArray("s", {2, 12}));
    return square;
  }

  ResolvedCanvas resolve() const { return resolveScene(scene.node()).canvases.at(0); }
  std::vector<MeshInstance> meshes() const { return resolve().meshes; }

  std::size_t instances() const {
    const auto found = meshes();
    return found.empty() ? 0 : found[0].transforms == nullptr ? 1 : found[0].transforms->size();
  }

  vtkSmartPointer<vtkPolyData> square = makeSquare();
  SceneBuilder scene;
  lum::SurfaceDrawable& surface = scene.addSurface(square, {1, 0, 0});
};

TEST_F(UnusableValuesTest, TransformsLeaveMeshesInPlaceOrHideThem) {
  struct {
    const char* name;
    Vector3 axis, scale, translation;
    std::size_t shown;
  } const cases[] = {{"no scale, no axis", {}, {}, {}, 1},
                     {"a scale to nothing", {0, 0, 1}, {1, 1, 0}, {}, 0},
                     {"normals too long for OpenGL", {0, 0, 1}, {1, 1, 1e-19}, {}, 0},
                     {"normals too short", {0, 0, 1}, {1e19, 1e19, 1e19}, {}, 0},
                     {"not a number", {0, 0, 1}, {1, 1, 1}, {NAN, 0, 0}, 1}};
  auto& transform = setTransform<lum::SimpleTransform>(surface);
  transform.setRotationAngle(QUARTER);
  for (const auto& [name, axis, scale, translation, shown] : cases) {
    transform.setRotationAxis(axis);
    transform.setScale(scale);
    transform.setTranslation(translation);
    ASSERT_EQ(meshes().size(), shown) << name;
    EXPECT_TRUE(shown == 0 || meshes()[0].transforms == nullptr) << name;
  }
  setTransform<lum::SymmetricTransform>(surface).setPlane({0, 0, 0, 1});
  EXPECT_EQ(instances(), 1U);
}

TEST_F(UnusableValuesTest, RepeatCountsAreClamped) {
  auto& repeat = setTransform<lum::PeriodicRepeatTransform>(surface);
  repeat.setTranslation({0.2, 0, 0});
  for (const auto& [count, shown] : {std::pair(1, 1U), {0, 1}, {-5, 1}, {3, 3}, {VERY_OFTEN, 10000}}) {
    repeat.setNumRepeats(count);
    EXPECT_EQ(instances(), shown) << count;
  }
  // Each is transformed against the one before: half a turn, four times as large.
  repeat.setTranslation({});
  repeat.setRotationAngle(QUARTER);
  repeat.setScale({2, 2, 1});
  EXPECT_LT(instances(), 200U) << "grown beyond all bounds";
  repeat.setNumRepeats(3);
  EXPECT_NEAR(transformedPoint(&meshes()[0].transforms->at(2), {1, 0, 0})[0], -4, 1e-9);
}

TEST_F(UnusableValuesTest, NestedRepeatsAreLimited) {
  lum::DrawableCollection* place = &scene.drawables();
  for (int i = 0; i < 5; ++i) {
    repeat(*place, {0.1, 0, 0}, i == 0 ? 1 : 100);
    place = &scene.collectionIn(*place);
  }
  for (int i = 0; i < 5; ++i) {
    scene.addSurface(square, {1, 0, 0}, *place);
  }
  EXPECT_EQ(meshes().back().transforms->size(), 10000U);
  scene.addSurface(square, {1, 0, 0}, *place);
  EXPECT_THROW(meshes(), SceneTooLarge);
}

TEST_F(UnusableValuesTest, LightsAndPlanesAreIgnoredAndLimitedWithFindings) {
  const auto addOne = [this](double value) {
    auto& lights = scene.canvas().getLightingAttributes().getLights();
    lights.findOrCreate<lum::Light>(std::to_string(lights.getNodeCount())).setIntensity(value);
    scene.clip({0 * value, 0, 2}, {0, value, 0});
  };
  addOne(NAN);
  const auto codes = [this] {
    const FoundFindings found;
    resolve();
    return found.codes();
  };
  for (int i = 0; i < 16; ++i) {
    addOne(0.5);
  }
  EXPECT_THAT(codes(), testing::UnorderedElementsAre("value-ignored", "value-ignored"));
  addOne(1e300);
  EXPECT_THAT(codes(), testing::UnorderedElementsAre("value-ignored", "value-ignored", "value-ignored",
                                                     "value-ignored"));
  addOne(0.5);
  EXPECT_THAT(codes(), testing::IsSupersetOf({"lights-limited", "planes-limited"}));
  const ResolvedCanvas canvas = resolve();
  ASSERT_EQ(canvas.lights.size(), 16U);
  EXPECT_EQ(canvas.lights[0].intensity, 0.5);
  ASSERT_EQ(canvas.clipPlanes.size(), 16U);
  EXPECT_EQ(canvas.clipPlanes[0].normal, (Vector3{0, 0, 1}));
}

TEST_F(UnusableValuesTest, MaterialsAreClamped) {
  auto& material = surface.getAttributes<lum::MaterialAttributes>();
  material.setAmbient(7);
  material.setDiffuse(NAN);
  material.setSpecular(-1);
  material.setSpecularPower(INFINITY);
  Appearance expected;
  expected.ambient = 1;
  EXPECT_EQ(meshes()[0].appearance, expected);
}

TEST_F(UnusableValuesTest, CountsOfColorsAreClamped) {
  auto& table =
      colorByArray(surface, "s", lum::DataLocation::CELLS, {0, 0, 1, 1, 0, 0.8, 0, 1, 0.8, 0, 0, 1});
  for (const auto& [count, colors] : {std::pair(-3, 256U), {0, 256}, {2, 2}, {1000000, 3}}) {
    table.setNumColor(count);
    EXPECT_EQ(meshes()[0].scalars->table->rgba.size(), 4 * colors) << count;
    EXPECT_EQ(meshes()[0].scalars->table->rgba[2], 255) << "the low end is blue";
  }
  EXPECT_THAT(meshes()[0].scalars->table->rgba,
              testing::ElementsAre(0, 0, 255, 255, 0, 204, 0, 255, 204, 0, 0, 255));
}

TEST_F(UnusableValuesTest, MissingArraysOrColormapsLeaveThePlainColor) {
  surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  EXPECT_FALSE(meshes()[0].scalars);
  surface.getAttributes<lum::ScalarAttributes>().getDataArray().setDataArrayName("s");
  EXPECT_FALSE(meshes()[0].scalars) << "no colormap is made up";
  colorByArray(surface, "gone", lum::DataLocation::CELLS);
  EXPECT_FALSE(meshes()[0].scalars);
  EXPECT_EQ(meshes()[0].color, (Vector3{1, 0, 0}));
}

TEST_F(UnusableValuesTest, MissingArraysAreReportedUnlessAnotherMeshHasThem) {
  colorByArray(surface, "t", lum::DataLocation::CELLS, {1, 0, 0, 1});
  for (const char* const array : {"u", "t"}) {
    const auto node = make<lum::PolyDataNode>();
    const auto other = makeSquare();
    other->GetCellData()->AddArray(makeArray(array, {1, 2}));
    node->setPolyData(other);
    surface.addNode(*node);
    const FoundFindings found;
    resolve();
    EXPECT_EQ(found.codes().size(), array == std::string("u") ? 1U : 0U);
  }
}

TEST_F(UnusableValuesTest, PointsWithoutCellsHaveNoColorsOfCells) {
  const auto geometry = makePolyData(flat({0, 0, 1, 0}), {});
  geometry->GetCellData()->AddArray(makeArray("c", {}));
  colorByArray(scene.add<lum::PointSphereDrawable>(geometry), "c", lum::DataLocation::CELLS, {1, 0, 0, 1});
  const FoundFindings found;
  EXPECT_FALSE(meshes().back().scalars);
  EXPECT_EQ(found.codes(), std::vector<std::string>{"not-colored-by-array"});
}

TEST_F(UnusableValuesTest, InvalidCellsAreNotDrawn) {
  struct {
    const char* name;
    Cells cells;
    std::size_t shown;
  } const cases[] = {
      {"index outside", {.polys = {{0, 1, 2, 3}, {0, 1, 4}}}, 0},
      {"negative index", {.polys = {{0, 1, 2, 3}}, .strips = {{0, 1, -1}}}, 0},
      {"too short",
       {.verts = {{}}, .lines = {{0}}, .polys = {{0, 1}, {0, 1, 2, 3}, {}}, .strips = {{1, 2}}},
       1}};
  for (const auto& [name, cells, shown] : cases) {
    SCOPED_TRACE(name);
    SceneBuilder other;
    const auto geometry = makePolyData(flat({-1, -1, 1, -1, 1, 1, -1, 1}), cells);
    geometry->GetCellData()->AddArray(makeArray("Normals", {1, 0, 0}, 3));
    geometry->GetPointData()->AddArray(makeArray("Normals", {1}, 1));
    colorByArray(other.addSurface(geometry, {1, 0, 0}), "Normals", lum::DataLocation::POINTS);
    const auto meshes = resolveScene(other.node()).canvases.at(0).meshes;
    ASSERT_EQ(meshes.size(), shown);
    if (shown > 0) {
      EXPECT_EQ(meshes[0].geometry->GetNumberOfCells(), 1);
      EXPECT_EQ(meshes[0].geometry->GetPointData()->GetNumberOfArrays(), 0);
      EXPECT_EQ(meshes[0].geometry->GetCellData()->GetNumberOfArrays(), 0);
      EXPECT_FALSE(meshes[0].scalars);
    }
  }
}

}  // namespace

}  // namespace vemo
