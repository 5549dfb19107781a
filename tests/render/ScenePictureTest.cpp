#include "render/SceneWindow.h"
#include "vemoview/render/context/EglContext.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/PointSizeAttributes.h>
#include <vemo/scenegraph/attributes/SurfaceAttributes.h>
#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <EGL/egl.h>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <set>

namespace vemo {

namespace {

using Pixel = Picture::Pixel;
using Color = Vector<3, double>;

constexpr int SIZE = RenderScene::SIZE;
constexpr int MIDDLE = SIZE / 2;
constexpr Pixel BLACK = {0, 0, 0};
constexpr Pixel RED = {255, 0, 0};
constexpr Pixel GREEN = {0, 255, 0};
constexpr Pixel BLUE = {0, 0, 255};
constexpr Pixel WHITE = {255, 255, 255};
constexpr float NAN_F = std::numeric_limits<float>::quiet_NaN();

// ---- Surfaces ----

TEST(ScenePicture, ShowsFacesInTheirKeyedColourAndTrueEdges) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {0, 0, 1});
  surface.getColorAttributes()->setColor("PolyDataNode", {1, 0, 0});
  EXPECT_EQ(at(scene.render(), 0, 0), BLUE);
  surface.getColorAttributes()->setColorMode(lum::ColorMode::KEYED);
  auto& faces = surface.getAttributes<lum::SurfaceAttributes>();
  auto& mesh = surface.getAttributes<lum::MeshAttributes>();
  mesh.setMeshColor({0, 1, 0});
  surface.getAttributes<lum::LineAttributes>().setLineWidth(4);
  for (const bool hasFaces : {true, false}) {
    for (const bool hasEdges : {true, false}) {
      SCOPED_TRACE(std::to_string(hasFaces) + std::to_string(hasEdges));
      faces.setShaded(hasFaces);
      mesh.setMeshVisible(hasEdges, false);
      const Picture picture = scene.render();
      const Pixel face = hasFaces ? RED : BLACK;
      const Pixel edge = hasEdges ? GREEN : face;
      // On the diagonals: no triangle's edge is to be seen there.
      EXPECT_EQ(at(picture, 0.25, 0.25), face);
      EXPECT_EQ(at(picture, 0.25, -0.25), face);
      EXPECT_EQ(at(picture, 0.493, 0.25), edge);
      EXPECT_EQ(at(picture, 0, -0.493), edge);
    }
  }
}

TEST(ScenePicture, DrawsEdgesAndContourAsOpaqueAsTheirOwnColour) {
  for (const double faces : {0.0, 1.0 / 255, 0.5, 1.0}) {
    for (const double lines : {0.5, 1.0}) {
      for (const bool isContour : {true, false}) {
        RenderScene scene;
        auto& surface = scene.addSurface(makeRectangle(-0.5, 0.5, -0.5, 0.5), {0, 0, 0});
        surface.getColorAttributes()->setOpacity(faces, false);
        surface.getAttributes<lum::LineAttributes>().setLineWidth(7);
        auto& edges = surface.getAttributes<lum::MeshAttributes>();
        edges.setMeshVisible(!isContour, false);
        edges.setMeshColor({0, 1, 0});
        edges.setMeshOpacity(lines);
        surface.getAttributes<lum::ContourAttributes>().setContourVisible(isContour);
        // Within the border: VTK draws half of an opaque edge, on its face.
        EXPECT_NEAR(at(scene.render(), -0.49, 0)[1], 255 * lines, 2) << faces << ", " << isContour;
      }
    }
  }
}

TEST(ScenePicture, ShadesByPointNormalsCellNormalsOrFacets) {
  // A roof whose two sides are equally bright when each has its own normal.
  const Cells roof{.polys = {{0, 1, 4, 3}, {1, 2, 5, 4}}};
  const auto geometry =
      makePolyData({{-1, -1, 0}, {0, -1, 1}, {1, -1, 0}, {-1, 1, 0}, {0, 1, 1}, {1, 1, 0}}, roof);
  const int facet = 180;
  const auto brightness = [&](double x) {
    RenderScene scene;
    scene.addSurface(geometry, {1, 1, 1});
    return static_cast<int>(at(scene.render(), x, 0)[0]);
  };
  EXPECT_NEAR(brightness(0.5), facet, 2);
  geometry->GetCellData()->SetNormals(makeArray("Normals", {0, 0, 1, 1, 0, 0}, 3));
  EXPECT_NEAR(brightness(-0.5), 255, 2);
  EXPECT_NEAR(brightness(0.5), 0, 2);
  geometry->GetPointData()->SetNormals(
      makeArray("Normals", {1, 0, 0, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0}, 3));
  EXPECT_NEAR(brightness(-0.02), 255, 5);
  EXPECT_NEAR(brightness(-0.98), 0, 6);
  EXPECT_GT(brightness(-0.3), brightness(-0.7) + 20) << "not smooth";
  // A strip's one normal would make all its triangles alike.
  const auto strip = makePolyData({{-1, -1, 0}, {-1, 1, 0}, {0, -1, 1}, {0, 1, 1}, {1, -1, 1}, {1, 1, 1}},
                                  {.strips = {{0, 1, 2, 3, 4, 5}}});
  strip->GetCellData()->SetNormals(makeArray("Normals", {1, 0, 0}, 3));
  RenderScene scene;
  scene.addSurface(strip, {1, 1, 1});
  const Picture picture = scene.render();
  EXPECT_NEAR(at(picture, -0.5, 0)[0], facet, 2);
  EXPECT_NEAR(at(picture, 0.5, 0)[0], 255, 2);
}

TEST(ScenePicture, MixesTranslucentSurfacesByDepthWhateverTheirOrder) {
  for (const float first : {0.5F, -0.5F}) {
    RenderScene scene;
    auto& background = scene.node().getBackgroundCanvas().getBackgroundAttributes();
    background.setColorMode(lum::BackgroundColorModes::TOP_BOTTOM);
    background.setColor1({1, 1, 1});
    background.setColor2({1, 1, 1});
    for (const float z : {first, -first}) {
      scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F, z), z > 0 ? Color{1, 0, 0} : Color{0, 0, 1})
          .getColorAttributes()
          ->setOpacity(0.5, false);
    }
    // Red half over blue half over white.
    EXPECT_NEAR(countPixels(scene.render(), {191, 64, 128}), MIDDLE * MIDDLE, 4);
  }
}

TEST(ScenePicture, SmoothsEdges) {
  RenderScene scene;
  scene.addSurface(makePolyData(flat({-0.9F, -0.5F, 0.8F, -0.3F, 0.1F, 0.9F}), {.polys = {{0, 1, 2}}}),
                   {1, 0, 0});
  const Picture picture = scene.render();
  std::set<int> reds;
  for (int column = 0; column < SIZE; ++column) {
    reds.insert(picture.at(column, MIDDLE)[0]);
  }
  EXPECT_GT(reds.size(), 2U) << "no tones between inside and outside";
}

// ---- Points ----

TEST(ScenePicture, DrawsEveryPointInADefaultColourThatStandsOutOnAnyGround) {
  const auto luminance = [](const Pixel& pixel) {
    const auto linear = [](double value) { return std::pow(value / 255, 2.2); };
    return 0.2126 * linear(pixel[0]) + 0.7152 * linear(pixel[1]) + 0.0722 * linear(pixel[2]) + 0.05;
  };
  for (const auto& [cells, count] : {std::pair(Cells{.verts = {{0}, {2, 3}}}, 3), {Cells{}, 4}}) {
    RenderScene scene;
    auto& points = scene.add<lum::PointSphereDrawable>(
        makePolyData(flat({0, 0, 0.5F, 0, 0, 0.5F, -0.5F, -0.5F}), cells));
    points.getAttributes<lum::PointSizeAttributes>().setPointSize(10);
    const Picture picture = scene.render();
    const Pixel color = at(picture, 0, 0);
    // Balls of ten pixels.
    EXPECT_NEAR(SIZE * SIZE - countPixels(picture, BLACK), count * 78, count * 20);
    EXPECT_GT(luminance(color) / luminance(BLACK), 4);
    EXPECT_GT(luminance(WHITE) / luminance(color), 4);
  }
}

// ---- Visibility and clipping ----

TEST(ScenePicture, HidesWhatIsHiddenAndAllBelow) {
  RenderScene scene;
  auto& outer = scene.collectionIn(scene.drawables());
  auto& surface = scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0}, outer);
  for (const bool isOuterVisible : {true, false}) {
    for (const bool isSurfaceVisible : {true, false}) {
      outer.getBaseAttributes().setVisibility(isOuterVisible, false);
      surface.getBaseAttributes().setVisibility(isSurfaceVisible, false);
      EXPECT_EQ(at(scene.render(), 0, 0), isOuterVisible && isSurfaceVisible ? RED : BLACK);
    }
  }
}

TEST(ScenePicture, KeepsTheHalfThatEachPlanesNormalPointsTo) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  scene.clip({2, 0, 0}, {0.25, 0, 0});
  // Planes that say nothing, more than OpenGL takes, and one beyond them.
  scene.clip({0, 0, 0}, {0, 0, 0});
  scene.clip({NAN_F, 0, 0}, {0, 0, 0});
  for (int i = 0; i < 6; ++i) {
    scene.clip({0, 0, 1}, {0, 0, -1});
  }
  scene.clip({0, 1, 0}, {0, 0.25, 0});
  const Picture picture = scene.render();
  EXPECT_EQ(at(picture, 0.3, 0.3), RED);
  EXPECT_EQ(at(picture, 0.2, 0.3), BLACK);
  EXPECT_EQ(at(picture, 0.3, 0.2), BLACK);
  surface.getBaseAttributes().setClipPlanesEnabled(false);
  EXPECT_EQ(countPixels(scene.render(), RED), SIZE * SIZE);
}

TEST(ScenePicture, KeepsTheColoursOfCellsOfAllKindsThatManyPlanesCut) {
  const auto draw = [](int planes) {
    RenderScene scene;
    const auto cells = makePolyData(flat({-0.9F, 0.9F, 0.9F, 0.9F, -0.9F, -0.8F, -0.9F, 0.8F, 0, 0.8F, 0,
                                          -0.8F, 0.9F, 0.8F, 0.9F, -0.8F}),
                                    {.lines = {{0, 1}}, .polys = {{2, 5, 4, 3}}, .strips = {{5, 4, 7, 6}}});
    cells->GetCellData()->AddArray(makeArray("s", {0, 0.5F, 1}));
    colorByArray(scene.addSurface(cells, {1, 1, 1}), "s", lum::DataLocation::CELLS);
    for (int i = 0; i < planes; ++i) {
      scene.clip({1, 0.3, 0}, {-0.5, 0, 0});
    }
    return scene.render();
  };
  EXPECT_LE(countDifferences(draw(9), draw(1), 2), SIZE);
}

// ---- Camera ----

TEST(ScenePicture, LooksThroughTheCameraOrFramesTheScene) {
  const double infinity = std::numeric_limits<double>::infinity();
  using Mode = lum::CameraAttributes::ProjectionMode;
  struct {
    const char* name;
    Color position, viewUp;
    Mode mode;
    double scale;
    // Where the green corner of the red square is expected to be seen, and
    // whether the square fills the picture (or stands out in its middle).
    double x, y;
    bool isFilled;
  } const cases[] = {
      {"parallel", {0, 0, 9}, {0, 1, 0}, Mode::PARALLEL, 10, 0.75, 0.75, true},
      {"upside down", {0, 0, 9}, {0, -1, 0}, Mode::PARALLEL, 10, -0.75, -0.75, true},
      {"far", {0, 0, 9}, {0, 1, 0}, Mode::PARALLEL, 20, 0.375, 0.375, false},
      {"perspective", {0, 0, 60}, {0, 1, 0}, Mode::PERSPECTIVE, 0, 0.47, 0.47, false},
      {"from below", {0, 0, -60}, {0, 1, 0}, Mode::PERSPECTIVE, 0, -0.47, 0.47, false},
      {"up along the sight", {0, 0, 9}, {0, 0, 2}, Mode::PARALLEL, 20, 0.375, 0.375, false},
      {"no up", {0, 0, 9}, {0, 0, 0}, Mode::PARALLEL, 20, 0.375, 0.375, false},
      {"no scale", {0, 0, 9}, {0, 1, 0}, Mode::PARALLEL, 0, 0.53, 0.53, false},
      {"infinite scale", {0, 0, 9}, {0, 1, 0}, Mode::PARALLEL, infinity, 0.53, 0.53, false},
      {"nowhere", {0, 0, 0}, {0, 1, 0}, Mode::PERSPECTIVE, 0, 0.53, 0.53, false},
      {"not a number", {NAN_F, 0, 1}, {0, 1, 0}, Mode::PERSPECTIVE, 0, 0.53, 0.53, false},
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

// ---- Lights ----

TEST(ScenePicture, StandsManyAndSenselessLights) {
  RenderScene scene;
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 1, 1});
  for (int i = 0; i < 1000; ++i) {
    const auto light = make<lum::Light>();
    light->setIntensity(i == 0 ? std::numeric_limits<double>::quiet_NaN() : 1.0 / 32);
    scene.canvas().getLightingAttributes().getLights().addNode(*light);
  }
  EXPECT_NEAR(at(scene.render(), 0, 0)[0], 255 * (16.0 + 0.25) / 32, 2);
}

TEST(ScenePicture, BringsSenselessMaterialsIntoTheirBounds) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(-1, 1, -1, 1), {0.5, 0, 0});
  auto& material = surface.getAttributes<lum::MaterialAttributes>();
  material.setAmbient(0.25);
  material.setDiffuse(NAN_F);
  material.setSpecular(-1);
  material.setSpecularPower(INFINITY);
  EXPECT_NEAR(at(scene.render(), 0, 0)[0], 255 * 0.625, 2) << "diffuse as by default";
  material.setAmbient(7);
  EXPECT_NEAR(at(scene.render(), 0, 0)[0], 255, 2);
}

// ---- Many meshes ----

/// A mesh of each kind, each coloured in its own way, around a position.
void addOneOfEachKind(RenderScene& scene, float x, float y) {
  const auto square = [=](float at) { return makeRectangle(x, x + 0.25F, y + at, y + at + 0.07F, 0.1F * x); };
  scene.addSurface(square(0), {0.5 + x / 4, 0.2, 0.4});
  const auto colored = [&](vtkPolyData* geometry, lum::DataLocation location) -> lum::SurfaceDrawable& {
    auto& surface = scene.add<lum::SurfaceDrawable>(geometry);
    colorByArray(surface, "s", location, {1, 0, 0, 1, 1, 1, 0, 1, 0, 0, 1, 1});
    return surface;
  };
  const auto byPoint = square(0.1F);
  byPoint->GetPointData()->AddArray(makeArray("s", {0, 9, 1, 9, 0.5F + x / 2, 9, 0, 9}, 2));
  byPoint->GetPointData()->AddArray(makeArray("Normals", {0, 1, 1, 0, 0, 1, 1, 0, 0, 0, 0, 1}, 3));
  colored(byPoint, lum::DataLocation::POINTS);
  const auto byCell =
      makePolyData(flat({x, y + 0.2F, x + 0.25F, y + 0.2F, x, y + 0.27F, x + 0.25F, y + 0.27F}),
                   {.lines = {{0, 3}, {1, 2}}, .polys = {{0, 1, 2}}, .strips = {{1, 2, 3}}});
  byCell->GetCellData()->AddArray(makeArray("s", {0.5F, 0, 1, 0.5F}));
  colored(byCell, lum::DataLocation::CELLS).getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  scene.add<lum::PolyLineDrawable>(
      makePolyData(flat({x, y + 0.3F, x + 0.2F, y + 0.35F}), {.lines = {{0, 1}}}), {0, 0.5 + x / 4, 1});
  auto& wire = scene.addSurface(square(0.4F), {1, 1, 1});
  wire.getAttributes<lum::SurfaceAttributes>().setShaded(false);
  wire.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  wire.getAttributes<lum::MeshAttributes>().setMeshColor({1, 1, 0});
}

TEST(ScenePicture, DrawsManySmallMeshesLikeFew) {
  RenderScene scene;
  for (const float x : {-0.9F, -0.3F, 0.3F}) {
    addOneOfEachKind(scene, x, -0.2F);
  }
  const Picture few = scene.render();
  EXPECT_LT(countPixels(few, BLACK), SIZE * SIZE - 3000);
  // Beside the picture.
  for (int i = 0; i < 20; ++i) {
    addOneOfEachKind(scene, 1.5F, 0.05F * static_cast<float>(i));
  }
  EXPECT_EQ(countDifferences(scene.render(), few, 1), 0);
}

// ---- What must not harm ----

TEST(ScenePicture, LeavesPointsOutThatAreNotFinite) {
  RenderScene scene;
  const auto surface = makePolyData(flat({-1, -1, 0, -1, 0, 1, -1, 1, NAN_F, 0, 1e30F, 0}),
                                    {.polys = {{1, 2, 4}, {0, 1, 2, 3}}});
  surface->GetCellData()->AddArray(makeArray("s", {0, 1}));
  auto& drawable = scene.addSurface(surface, {1, 0, 0});
  const auto line =
      makePolyData(flat({0.1F, 0, 0.4F, 0, INFINITY, 0, 0.5F, 0, 0.8F, 0}), {.lines = {{0, 1, 2, 3, 4}}});
  scene.add<lum::PolyLineDrawable>(line, {0, 1, 0}).getAttributes<lum::LineAttributes>().setLineWidth(4);
  scene.add<lum::PointSphereDrawable>(makePolyData(flat({NAN_F, 0, 0.5F, 0.5F}), {}), {0, 0, 1})
      .getAttributes<lum::PointSizeAttributes>()
      .setPointSize(10);
  // The camera is the scene's own: it comes from the finite points only.
  scene.canvas().getCameraAttributes().setParallelScale(std::nullopt);
  Picture picture = scene.render();
  EXPECT_GT(countPixels(picture, RED), SIZE * SIZE / 8);
  EXPECT_GT(countPixels(picture, GREEN), 100);
  EXPECT_NEAR(countPixels(picture, BLUE, 200), 78, 20);
  scene.canvas().getCameraAttributes().setParallelScale(1.0);
  picture = scene.render();
  EXPECT_NEAR(countPixels(picture, GREEN), 2 * 45 * 4, 40) << "two lines, four pixels wide";
  EXPECT_EQ(at(picture, 0.25, 0), GREEN);
  EXPECT_EQ(at(picture, 0.45, 0), BLACK);
  EXPECT_EQ(at(picture, 0.65, 0), GREEN);
  // The cell that is left keeps its own value.
  colorByArray(drawable, "s", lum::DataLocation::CELLS, {1, 0, 0, 1, 0, 0, 1, 1});
  EXPECT_EQ(at(scene.render(), -0.5, 0), BLUE);
}

TEST(ScenePicture, StandsGeometryThatVtkWouldNot) {
  struct {
    const char* name;
    Cells cells;
    bool isSeen;
  } const cases[] = {
      {"index outside", {.polys = {{0, 1, 2, 3}, {0, 1, 4}}}, false},
      {"negative index", {.polys = {{0, 1, 2, 3}}, .strips = {{0, 1, -1}}}, false},
      {"too short",
       {.verts = {{}}, .lines = {{0}}, .polys = {{0, 1}, {0, 1, 2, 3}, {}}, .strips = {{1, 2}}},
       true},
      {"one point many times", {.polys = {{1, 1, 1, 1, 1}, {0, 1, 2, 3}}}, true}};
  for (const auto& [name, cells, isSeen] : cases) {
    SCOPED_TRACE(name);
    RenderScene scene;
    const auto geometry = makePolyData(flat({-1, -1, 1, -1, 1, 1, -1, 1}), cells);
    geometry->GetCellData()->AddArray(makeArray("Normals", {1, 0, 0}, 3));
    geometry->GetPointData()->AddArray(makeArray("Normals", {1}, 1));
    colorByArray(scene.addSurface(geometry, {1, 0, 0}), "Normals", lum::DataLocation::POINTS);
    EXPECT_EQ(countPixels(scene.render(), RED), isSeen ? SIZE * SIZE : 0);
  }
}

TEST(ScenePicture, RefusesSizesThatOpenGlDoesNotDraw) {
  const RenderScene scene;
  EXPECT_THROW(renderPicture(scene.node(), {1 << 20, 1}), RenderingUnavailable);
  EXPECT_THROW(renderPicture(scene.node(), {0, 1}), InternalError);
}

TEST(ScenePicture, LeavesTheHostItsContext) {
  const RenderScene scene;
  const EglContext hosts;
  hosts.makeCurrent();
  scene.render();
  EXPECT_TRUE(hosts.isCurrent());
  hosts.release();
  scene.render();
  EXPECT_EQ(eglGetCurrentContext(), EGL_NO_CONTEXT);
}

TEST(ScenePicture, IsDrawnInSeveralWindowsInTurn) {
  RenderScene scene;
  scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {0, 1, 0});
  SceneWindow first(scene);
  const Picture picture = first.draw();
  const RenderScene other;
  { const SceneWindow second(other); }
  EXPECT_EQ(first.draw(), picture);
}

/// Runs in a process of its own: drivers are looked up once.
TEST(ScenePictureDeathTest, SaysWhenThereIsNoOpenGl) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        setenv("__EGL_VENDOR_LIBRARY_DIRS", "/nonexistent", 1);
        try {
          RenderScene().render();
          std::exit(1);
        } catch (const RenderingUnavailable& error) {
          std::exit(std::string_view(error.what()).find("OpenGL") == std::string_view::npos ? 2 : 0);
        }
      },
      testing::ExitedWithCode(0), "^$");
}

TEST(ScenePicture, DrawsAnEmptySceneAndTheSamePictureTwice) {
  const auto empty = make<lum::SceneNode>();
  const Picture picture = renderPicture(*empty, {40, 30});
  EXPECT_EQ(countPixels(picture, BLACK, 0), 40 * 30);
  EXPECT_EQ(renderPicture(*empty, {40, 30}).toPng(), picture.toPng());
}

}  // namespace

}  // namespace vemo
