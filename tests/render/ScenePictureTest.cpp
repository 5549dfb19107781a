#include "render/RenderScene.h"
#include "vemoview/render/context/EglContext.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/render/ScenePicture.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <EGL/egl.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

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

/// The pixel at model coordinates of a RenderScene.
Pixel at(const Picture& picture, double x, double y) {
  return picture.at(static_cast<int>((x + 1) / 2 * SIZE), static_cast<int>((1 - y) / 2 * SIZE));
}

// ---- Surfaces ----

TEST(ScenePicture, ShowsASurfaceInItsKeyedColour) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {0, 0, 1});
  auto& colors = *surface.getColorAttributes();
  colors.setColor("PolyDataNode", {1, 0, 0});
  EXPECT_EQ(at(scene.render(), 0, 0), BLUE);
  colors.setColorMode(lum::ColorMode::KEYED);
  const Picture picture = scene.render();
  EXPECT_EQ(at(picture, 0, 0), RED);
  EXPECT_EQ(at(picture, -0.8, 0), BLACK);
  EXPECT_NEAR(countPixels(picture, RED), MIDDLE * MIDDLE, 4);
}

TEST(ScenePicture, ShowsFacesAndTrueEdges) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {1, 0, 0});
  auto& faces = surface.getAttributes<lum::SurfaceAttributes>();
  auto& mesh = surface.getAttributes<lum::MeshAttributes>();
  mesh.setMeshColor({0, 1, 0});
  surface.getAttributes<lum::LineAttributes>().setLineWidth(4);
  struct {
    bool hasFaces, hasEdges;
    Pixel face, edge;
  } const cases[] = {{true, false, RED, RED},
                     {true, true, RED, GREEN},
                     {false, true, BLACK, GREEN},
                     {false, false, BLACK, BLACK}};
  for (const auto& expected : cases) {
    faces.setShaded(expected.hasFaces);
    mesh.setMeshVisible(expected.hasEdges, false);
    const Picture picture = scene.render();
    SCOPED_TRACE(std::to_string(expected.hasFaces) + std::to_string(expected.hasEdges));
    // On the diagonals: no triangle's edge is to be seen there.
    EXPECT_EQ(at(picture, 0.25, 0.25), expected.face);
    EXPECT_EQ(at(picture, 0.25, -0.25), expected.face);
    EXPECT_EQ(at(picture, 0.493, 0.25), expected.edge);
    EXPECT_EQ(at(picture, 0, -0.493), expected.edge);
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

TEST(ScenePicture, MixesTranslucentSurfacesByDepthOverTheBackground) {
  RenderScene scene;
  auto& background = scene.node().getBackgroundCanvas().getBackgroundAttributes();
  background.setColorMode(lum::BackgroundColorModes::TOP_BOTTOM);
  background.setColor1({1, 1, 1});
  background.setColor2({1, 1, 1});
  for (const auto& [z, color] : {std::pair(0.5F, Color{1, 0, 0}), {-0.5F, {0, 0, 1}}}) {
    auto& surface = scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F, z), color);
    surface.getColorAttributes()->setOpacity(0.5, false);
  }
  // Red half over blue half over white.
  const Pixel seen = at(scene.render(), 0, 0);
  EXPECT_NEAR(seen[0], 191, 2);
  EXPECT_NEAR(seen[1], 64, 2);
  EXPECT_NEAR(seen[2], 128, 2);
}

// ---- Lines and points ----

TEST(ScenePicture, DrawsLinesAsWideAsTheySay) {
  RenderScene scene;
  auto& lines = scene.add<lum::PolyLineDrawable>(
      makePolyData({{-0.5F, 0, 0}, {0, 0, 0}, {0.5F, 0, 0}}, {.lines = {{0, 1, 2}}}));
  lines.getColorAttributes()->setColor(Color{0, 1, 0}, false);
  lines.getAttributes<lum::LineAttributes>().setLineWidth(6);
  EXPECT_NEAR(countPixels(scene.render(), GREEN), 6 * MIDDLE, 2 * MIDDLE / 10);
}

TEST(ScenePicture, DrawsEveryPointInADefaultColourThatStandsOutOnAnyGround) {
  const auto luminance = [](const Pixel& pixel) {
    const auto linear = [](double value) { return std::pow(value / 255, 2.2); };
    return 0.2126 * linear(pixel[0]) + 0.7152 * linear(pixel[1]) + 0.0722 * linear(pixel[2]) + 0.05;
  };
  struct {
    const char* name;
    Cells cells;
    int points;
  } const cases[] = {{"vertices", {.verts = {{0}, {2, 3}}}, 3}, {"points without cells", {}, 4}};
  for (const auto& [name, cells, count] : cases) {
    SCOPED_TRACE(name);
    RenderScene scene;
    auto& points = scene.add<lum::PointSphereDrawable>(
        makePolyData({{0, 0, 0}, {0.5F, 0, 0}, {0, 0.5F, 0}, {-0.5F, -0.5F, 0}}, cells));
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
  auto& surface = scene.add<lum::SurfaceDrawable>(makeRectangle(-1, 1, -1, 1), outer);
  surface.getColorAttributes()->setColor(Color{1, 0, 0}, false);
  EXPECT_EQ(at(scene.render(), 0, 0), RED);
  outer.getBaseAttributes().setVisibility(false, false);
  EXPECT_EQ(at(scene.render(), 0, 0), BLACK);
  outer.getBaseAttributes().setVisibility(true, false);
  surface.getBaseAttributes().setVisibility(false, false);
  EXPECT_EQ(at(scene.render(), 0, 0), BLACK);
}

void addPlane(RenderScene& scene, const Color& normal, const Color& origin) {
  lum::Ptr<lum::Plane> plane(new lum::Plane(lum::ClassNameNodeInitializer(lum::Plane::getClassName())));
  plane->setNormal(normal);
  plane->setOrigin(origin);
  scene.canvas().getClipPlanesAttributes().getClippingPlanes().addNode(*plane);
}

TEST(ScenePicture, KeepsTheHalfThatEachPlanesNormalPointsTo) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  addPlane(scene, {2, 0, 0}, {0.25, 0, 0});
  // Planes that say nothing, more than OpenGL takes, and one beyond them.
  addPlane(scene, {0, 0, 0}, {0, 0, 0});
  addPlane(scene, {NAN_F, 0, 0}, {0, 0, 0});
  for (int i = 0; i < 6; ++i) {
    addPlane(scene, {0, 0, 1}, {0, 0, -1});
  }
  addPlane(scene, {0, 1, 0}, {0, 0.25, 0});
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
    const auto cells = makePolyData({{-0.9F, 0.9F, 0},
                                     {0.9F, 0.9F, 0},
                                     {-0.9F, -0.8F, 0},
                                     {-0.9F, 0.8F, 0},
                                     {0, 0.8F, 0},
                                     {0, -0.8F, 0},
                                     {0.9F, 0.8F, 0},
                                     {0.9F, -0.8F, 0}},
                                    {.lines = {{0, 1}}, .polys = {{2, 5, 4, 3}}, .strips = {{5, 4, 7, 6}}});
    cells->GetCellData()->AddArray(makeArray("s", {0, 0.5F, 1}));
    auto& surface = scene.addSurface(cells, {1, 1, 1});
    surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
    surface.getAttributes<lum::DataLocationAttributes>().setDataLocation(lum::DataLocation::CELLS);
    surface.getAttributes<lum::ScalarAttributes>().getDataArray().setDataArrayName("s");
    for (int i = 0; i < planes; ++i) {
      addPlane(scene, {1, 0.3, 0}, {-0.5, 0, 0});
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
    lum::Ptr<lum::SceneNode> keep(&scene.node());
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
    lum::Ptr<lum::Light> light(new lum::Light(lum::ClassNameNodeInitializer(lum::Light::getClassName())));
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

// ---- Many pieces ----

/// A piece of each kind, each coloured in its own way, about a place.
void addOneOfEachKind(RenderScene& scene, float x, float y) {
  const auto square = [=](float at) { return makeRectangle(x, x + 0.25F, y + at, y + at + 0.07F, 0.1F * x); };
  scene.addSurface(square(0), {0.5 + x / 4, 0.2, 0.4});
  const auto colorByData = [](lum::GeometryDrawable& drawable, lum::DataLocation location) {
    drawable.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
    drawable.getAttributes<lum::DataLocationAttributes>().setDataLocation(location);
    auto& scalars = drawable.getAttributes<lum::ScalarAttributes>();
    scalars.getDataArray().setDataArrayName("s");
    scalars.getColorLookupTable().setColorValues({1, 0, 0, 1, 1, 1, 0, 1, 0, 0, 1, 1});
    scalars.getColorLookupTable().setNumColor(3);
  };
  const auto byPoint = square(0.1F);
  byPoint->GetPointData()->AddArray(makeArray("s", {0, 9, 1, 9, 0.5F + x / 2, 9, 0, 9}, 2));
  byPoint->GetPointData()->AddArray(makeArray("Normals", {0, 1, 1, 0, 0, 1, 1, 0, 0, 0, 0, 1}, 3));
  colorByData(scene.add<lum::SurfaceDrawable>(byPoint), lum::DataLocation::POINTS);
  const auto byCell =
      makePolyData({{x, y + 0.2F, 0}, {x + 0.25F, y + 0.2F, 0}, {x, y + 0.27F, 0}, {x + 0.25F, y + 0.27F, 0}},
                   {.lines = {{0, 3}, {1, 2}}, .polys = {{0, 1, 2}}, .strips = {{1, 2, 3}}});
  byCell->GetCellData()->AddArray(makeArray("s", {0.5F, 0, 1, 0.5F}));
  auto& mixed = scene.add<lum::SurfaceDrawable>(byCell);
  colorByData(mixed, lum::DataLocation::CELLS);
  mixed.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  auto& line = scene.add<lum::PolyLineDrawable>(
      makePolyData({{x, y + 0.3F, 0}, {x + 0.2F, y + 0.35F, 0}}, {.lines = {{0, 1}}}));
  line.getColorAttributes()->setColor(Color{0, 0.5 + x / 4, 1}, false);
  auto& wire = scene.addSurface(square(0.4F), {1, 1, 1});
  wire.getAttributes<lum::SurfaceAttributes>().setShaded(false);
  wire.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  wire.getAttributes<lum::MeshAttributes>().setMeshColor({1, 1, 0});
}

TEST(ScenePicture, DrawsManySmallPiecesLikeFew) {
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
  const auto surface =
      makePolyData({{-1, -1, 0}, {0, -1, 0}, {0, 1, 0}, {-1, 1, 0}, {NAN_F, 0, 0}, {1e30F, 0, 0}},
                   {.polys = {{1, 2, 4}, {0, 1, 2, 3}}});
  surface->GetCellData()->AddArray(makeArray("s", {0, 1}));
  auto& drawable = scene.addSurface(surface, {1, 0, 0});
  const auto line = makePolyData({{0.1F, 0, 0}, {0.4F, 0, 0}, {INFINITY, 0, 0}, {0.5F, 0, 0}, {0.8F, 0, 0}},
                                 {.lines = {{0, 1, 2, 3, 4}}});
  auto& lines = scene.add<lum::PolyLineDrawable>(line);
  lines.getColorAttributes()->setColor(Color{0, 1, 0}, false);
  lines.getAttributes<lum::LineAttributes>().setLineWidth(4);
  auto& points = scene.add<lum::PointSphereDrawable>(makePolyData({{NAN_F, 0, 0}, {0.5F, 0.5F, 0}}, {}));
  points.getColorAttributes()->setColor(Color{0, 0, 1}, false);
  points.getAttributes<lum::PointSizeAttributes>().setPointSize(10);
  // The camera is the scene's own: it comes from the finite points only.
  scene.canvas().getCameraAttributes().setParallelScale(std::nullopt);
  Picture picture = scene.render();
  EXPECT_GT(countPixels(picture, RED), SIZE * SIZE / 8);
  EXPECT_GT(countPixels(picture, GREEN), 100);
  EXPECT_NEAR(countPixels(picture, BLUE, 200), 78, 20);
  scene.canvas().getCameraAttributes().setParallelScale(1.0);
  picture = scene.render();
  EXPECT_EQ(at(picture, 0.25, 0), GREEN);
  EXPECT_EQ(at(picture, 0.45, 0), BLACK);
  EXPECT_EQ(at(picture, 0.65, 0), GREEN);
  // The cell that is left keeps its own value.
  drawable.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  auto& scalars = drawable.getAttributes<lum::ScalarAttributes>();
  scalars.getDataArray().setDataArrayName("s");
  scalars.getColorLookupTable().setColorValues({1, 0, 0, 1, 0, 0, 1, 1});
  scalars.getColorLookupTable().setNumColor(2);
  drawable.getAttributes<lum::DataLocationAttributes>().setDataLocation(lum::DataLocation::CELLS);
  EXPECT_EQ(at(scene.render(), -0.5, 0), BLUE);
}

TEST(ScenePicture, StandsGeometryThatVtkWouldNot) {
  const std::vector<std::array<float, 3>> points = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
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
    const auto geometry = makePolyData(points, cells);
    geometry->GetCellData()->AddArray(makeArray("Normals", {1, 0, 0}, 3));
    geometry->GetPointData()->AddArray(makeArray("Normals", {1}, 1));
    auto& surface = scene.addSurface(geometry, {1, 0, 0});
    surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
    surface.getAttributes<lum::ScalarAttributes>().getDataArray().setDataArrayName("Normals");
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

TEST(ScenePicture, DrawsAnEmptySceneAndTheSamePictureTwice) {
  const lum::Ptr<lum::SceneNode> empty(
      new lum::SceneNode(lum::ClassNameNodeInitializer(lum::SceneNode::getClassName())));
  const Picture picture = renderPicture(*empty, {40, 30});
  EXPECT_EQ(countPixels(picture, BLACK, 0), 40 * 30);
  EXPECT_EQ(renderPicture(*empty, {40, 30}).toPng(), picture.toPng());
}

}  // namespace

}  // namespace vemo
