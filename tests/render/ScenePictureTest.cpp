#include "geometry/Normals.h"
#include "render/SceneWindow.h"
#include "vemoview/render/context/EglContext.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>
#include <vemo/scenegraph/edit/View.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <EGL/egl.h>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vemo {

namespace {

using Pixel = Picture::Pixel;
using Color = Vector3;

constexpr int MIDDLE = SIZE / 2;
constexpr Pixel BLUE = {0, 0, 255};

TEST(ScenePictureTest, DrawsEdgesAndContourAsOpaqueAsTheirOwnColour) {
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
        const Picture picture = scene.render();
        for (const double place : {-0.51, -0.49}) {
          EXPECT_NEAR(at(picture, place, 0)[1], 255 * lines, 2) << faces << ", " << isContour;
        }
      }
    }
  }
}

TEST(ScenePictureTest, ShadesByPointNormalsCellNormalsOrFacets) {
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
  EXPECT_NEAR(brightness(-0.99), 0, 6);
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

/// The square of a length in the model, or in a pixel, may be out of the range of single precision.
TEST(ScenePictureTest, LightsModelsOfAnySizeAlike) {
  const auto draw = [](float size) {
    RenderScene scene;
    lum::CameraAttributes& camera = scene.canvas().getCameraAttributes();
    camera.setPosition({0, 0, 4.0 * size});
    camera.setParallelScale(size);
    scene
        .addSurface(makePolyData({{-size, -size, 0}, {size, -size, 0}, {-size, size, 0}, {size, size, size}},
                                 {.strips = {{0, 1, 2, 3}}}),
                    {0.5, 0.5, 0.5})
        .getAttributes<lum::MaterialAttributes>()
        .setSpecular(0.5);
    const Picture picture = scene.render();
    return std::pair(at(picture, -0.4, -0.4), at(picture, 0.4, 0.4));
  };
  const auto usual = draw(1);
  EXPECT_NE(usual.first, usual.second);
  for (const float size : {1e-15F, 1e15F, 1e25F}) {
    EXPECT_EQ(draw(size), usual) << size;
  }
}

TEST(ScenePictureTest, LightsBelowZeroTakeLightAway) {
  RenderScene scene;
  scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {1, 1, 1});
  auto& lights = scene.canvas().getLightingAttributes().getLights();
  lights.findOrCreate<lum::Light>("bright");
  lights.findOrCreate<lum::Light>("dark").setIntensity(-0.5);
  EXPECT_EQ(countPixels(scene.render(), {128, 128, 128}), MIDDLE * MIDDLE);
}

TEST(ScenePictureTest, MixesTranslucentSurfacesByDepthWhateverTheirOrder) {
  for (const float first : {0.5F, -0.5F}) {
    for (const bool isBeforeWall : {false, true}) {
      RenderScene scene;
      scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({1, 1, 1});
      if (isBeforeWall) {
        scene.addSurface(makeRectangle(-1, 1, -1, 1, -0.9F), {1, 1, 1});
      }
      for (const float z : {first, -first}) {
        scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F, z), z > 0 ? Color{1, 0, 0} : Color{0, 0, 1})
            .getColorAttributes()
            ->setOpacity(0.5, false);
      }
      // Red half over blue half over white.
      EXPECT_NEAR(countPixels(scene.render(), {191, 64, 128}), MIDDLE * MIDDLE, 4) << isBeforeWall;
    }
  }
}

TEST(ScenePictureTest, KeepsTheColoursOfCellsOfAllKindsThatManyPlanesCut) {
  const auto draw = [](int planes) {
    RenderScene scene;
    const auto cells = makePolyData(flat({-0.9F, 0.9F, 0.9F, 0.9F, -0.9F, -0.8F, -0.9F, 0.8F, 0, 0.8F, 0,
                                          -0.8F, 0.9F, 0.8F, 0.9F, -0.8F}),
                                    {.lines = {{0, 1}}, .polys = {{2, 5, 4, 3}}, .strips = {{5, 4, 7, 6}}});
    cells->GetCellData()->AddArray(makeArray("s", {0, 0.5F, 1}));
    colorByArray(scene.addSurface(cells, {1, 1, 1}), "s", lum::DataLocation::CELLS);
    scene.clip({0, 0, 0}, {0, 0, 0});
    for (int i = 0; i < planes; ++i) {
      scene.clip({1, 0.3, 0}, {-0.5, 0, 0});
    }
    return scene.render();
  };
  EXPECT_LE(countDifferences(draw(9), draw(1), 2), SIZE);
}

TEST(ScenePictureTest, ShowsTheEdgesAndTheViewOfTheWholeThatManyPlanesCut) {
  const auto draw = [](int planes) {
    RenderScene scene;
    scene.forgetView();
    auto& surface = scene.addSurface(
        makePolyData(flat({-0.9F, -0.9F, 0.9F, -0.9F, 0.9F, 0.9F, 0, 0.9F, 0, -0.2F, 0.3F, 0}),
                     {.polys = {{0, 1, 2, 3}}, .strips = {{4, 5, 3, 2}}}),
        {1, 0, 0});
    surface.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
    surface.getAttributes<lum::MeshAttributes>().setMeshColor({1, 1, 1});
    setTransform<lum::SimpleTransform>(surface).setScale({2, 1, 1});
    for (int i = 0; i < planes; ++i) {
      scene.clip({1, 0.3, 0}, {-0.5, 0, 0});
    }
    return scene.render();
  };
  const Picture cutByVtk = draw(1);
  EXPECT_GT(countPixels(cutByVtk, {255, 255, 255}), 150);
  EXPECT_LE(countDifferences(draw(9), cutByVtk, 2), 20);
}

TEST(ScenePictureTest, DrawsLinesInTheirOwnColourWhateverTheMaterial) {
  RenderScene scene;
  auto& lines = scene.add<lum::PolyLineDrawable>(
      makePolyData(flat({-0.5F, 0.5F, 0.5F, 0.5F}), {.lines = {{0, 1}}}), {0, 0.6, 0});
  auto& square = scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0), {0, 0, 1});
  square.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  square.getAttributes<lum::MeshAttributes>().setMeshColor({0, 0.6, 0});
  for (lum::GeometryDrawable* const each :
       {static_cast<lum::GeometryDrawable*>(&lines), static_cast<lum::GeometryDrawable*>(&square)}) {
    auto& material = each->getAttributes<lum::MaterialAttributes>();
    material.setAmbient(0.1);
    material.setDiffuse(0.5);
    each->getAttributes<lum::LineAttributes>().setLineWidth(3);
  }
  const Picture picture = scene.render();
  EXPECT_GT(countPixels(picture, {0, 153, 0}), 400);
}

TEST(ScenePictureTest, DrawsPointsOfASizeInTheModelSmallerFartherAway) {
  RenderScene scene;
  scene.canvas().getCameraAttributes().setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
  const auto points = makePolyData({{-0.5F, 0, 0}, {2, 0, -15}, {2, 10, -75}}, {.verts = {{0}, {1}, {2}}});
  points->GetPointData()->AddArray(makeArray("s", {1, 1, 1}));
  auto& drawable = scene.add<lum::PointSphereDrawable>(points, {1, 1, 1});
  drawable.getAttributes<lum::MaterialAttributes>().setAmbient(0.1);
  drawable.getAttributes<lum::MaterialAttributes>().setDiffuse(0.3);
  auto& scale = drawable.getAttributes<lum::PointScaleAttributes>();
  scale.setScaleMode(lum::PointScaleMode::LINEAR);
  scale.setScalarName("s");
  scale.setMapToRange({0.5, 0.5});
  scale.setPixelSize(false);
  const Picture picture = scene.render();
  const auto widthAt = [&picture](int first) {
    int count = 0;
    for (int column = first; column < first + SIZE / 2; ++column) {
      count += picture.at(column, SIZE / 2) != BLACK ? 1 : 0;
    }
    return count;
  };
  // In pixels, half a unit divided by the height of the view there: 2.68 at a distance of 5.
  EXPECT_NEAR(widthAt(0), 0.5 / 2.68 * SIZE, 2);
  EXPECT_NEAR(widthAt(SIZE / 2), 0.5 / 10.72 * SIZE, 2);
  EXPECT_GT(countPixels(picture, {255, 255, 255}), 0) << "a small one is not lit";
}

TEST(ScenePictureTest, LightsAllTrianglesOfSelfCrossingPolygons) {
  RenderScene scene;
  const auto crossed =
      makePolyData(flat({-0.8F, -0.8F, 0.8F, 0.8F, 0.8F, -0.8F, -0.8F, 0.8F}), {.polys = {{0, 1, 2, 3}}});
  crossed->GetPointData()->AddArray(makeArray("Normals", {0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1}, 3));
  scene.addSurface(crossed, {1, 0, 0});
  const Picture picture = scene.render();
  EXPECT_EQ(at(picture, -0.7, 0), RED);
  EXPECT_EQ(at(picture, 0.7, 0), RED);
}

/// No fan of triangles around a corner fills it.
TEST(ScenePictureTest, FillsConcavePolygons) {
  RenderScene scene;
  const auto polygon = makePolyData(
      flat({-0.8F, -0.8F, 0.8F, -0.8F, 0.8F, 0.8F, 0.4F, 0.8F, 0.4F, 0, -0.4F, 0, -0.4F, 0.8F, -0.8F, 0.8F}),
      {.polys = {{0, 1, 2, 3, 4, 5, 6, 7}}});
  polygon->GetCellData()->AddArray(makeArray("s", {1, 0}, 2));
  auto& comb = scene.addSurface(polygon, {1, 0, 0});
  const Picture filled = scene.render();
  EXPECT_EQ(at(filled, 0.1, 0.3), BLACK);
  for (const double x : {-0.6, 0.6}) {
    EXPECT_EQ(at(filled, x, 0.4), RED);
    EXPECT_EQ(at(filled, x, -0.4), RED);
  }
  comb.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  comb.getAttributes<lum::MeshAttributes>().setMeshColor({0, 1, 0});
  const Picture withEdges = scene.render();
  comb.getAttributes<lum::SurfaceAttributes>().setShaded(false);
  EXPECT_EQ(countPixels(withEdges, {0, 255, 0}), countPixels(scene.render(), {0, 255, 0}));
  comb.getAttributes<lum::SurfaceAttributes>().setShaded(true);
  colorByArray(comb, "s", lum::DataLocation::CELLS, {1, 0, 0, 1, 0, 0, 1, 1});
  EXPECT_EQ(at(scene.render(), -0.6, 0.4), BLUE);
}

TEST(ScenePictureTest, ShadesFlatPlatesEvenlyWhateverTheirPolygons) {
  const auto plate = makeStarInPlate();
  plate->GetVerts()->Initialize();
  // What a conversion writes.
  plate->GetPointData()->AddArray(pointNormals(*plate));
  RenderScene scene;
  scene.addSurface(plate, {1, 0, 0});
  const Picture picture = scene.render();
  const Picture::Pixel shade = at(picture, 0, 0);
  EXPECT_GT(shade[0], 150);
  // All but some pixels of the border: a pentagon has 2.378 times the square of its radius.
  EXPECT_NEAR(countPixels(picture, shade), 2.378 / 4.0 * SIZE * SIZE, 2.0 * SIZE);
}

TEST(ScenePictureTest, IsEmptyWhenManyPlanesCutAllAway) {
  RenderScene scene;
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  for (int i = 0; i < 9; ++i) {
    scene.clip({1, 0, 0}, {i < 6 ? -5.0 : 5.0, 0, 0});
  }
  EXPECT_EQ(countPixels(scene.render(), BLACK), SIZE * SIZE);
}

/// What VTK says in its lifetime.
class MessagesOfVtk {
 public:
  MessagesOfVtk() {
    Logger::getSingleton().setFlags(Logger::ERROR_FLAG | Logger::WARNING_FLAG);
    Logger::getSingleton().setSink([this](const std::string& line) { lines.push_back(line); });
  }
  ~MessagesOfVtk() { Logger::getSingleton().setSink(nullptr); }
  MessagesOfVtk(const MessagesOfVtk&) = delete;
  MessagesOfVtk& operator=(const MessagesOfVtk&) = delete;

  std::vector<std::string> lines;
};

// VTK says so when it gets more planes than it takes.
TEST(ScenePictureTest, CutsByManyPlanesWithoutAWord) {
  RenderScene scene;
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  for (int i = 0; i < 9; ++i) {
    scene.clip({1, 0, 0}, {0, 0, 0});
  }
  const MessagesOfVtk messages;
  const Picture picture = scene.render();
  EXPECT_EQ(messages.lines, std::vector<std::string>());
  EXPECT_EQ(boxOf(picture, RED).left, SIZE / 2);
}

// VTK has no texture for a text in one column of pixels. Pictures are drawn twice as large.
TEST(ScenePictureTest, LeavesOutTextsInAColumnOfPixelsWithoutAWord) {
  RenderScene scene;
  scene.canvas().getAttributes<lum::CanvasPositionAttributes>().setPosition({0.5, 0});
  auto& text = scene.drawables().findOrCreate<lum::TextDrawable>("text");
  text.getAnnotationAttributes().setText("Hxx");
  text.getTextAttributes().setFontSize(0.1);
  const MessagesOfVtk messages;
  renderPicture(scene.node(), {.width = 1, .height = SIZE});
  EXPECT_EQ(messages.lines, std::vector<std::string>());
}

TEST(ScenePictureTest, TransformsLeaveClippingPlanesWhereTheyAre) {
  RenderScene scene;
  setTransform<lum::SimpleTransform>(scene.drawables()).setTranslation({-0.5, 0, 0});
  auto& surface = scene.addSurface(makeRectangle(0, 0.4F, 0, 0.2F), {1, 0, 0});
  setTransform<lum::SimpleTransform>(surface).setScale({2, 2, 1});
  // The last plane is one too many for the mapper.
  for (const double x : {-0.3, -0.9, -0.9, -0.9, -0.9, -0.9, -0.1}) {
    scene.clip({1, 0, 0}, {x, 0, 0});
    const PixelBox box = boxOf(scene.render(), RED);
    EXPECT_NEAR(box.left, x > -0.2 ? 0.45 * SIZE : 0.35 * SIZE, 1.6);
    EXPECT_NEAR(box.right, 0.65 * SIZE, 1.6);
    EXPECT_NEAR(box.top, 0.7 * SIZE, 1.6);
  }
}

TEST(ScenePictureTest, PutsAColormapOfOneValueInTheMiddle) {
  for (const double value : {0.0, 0.1, 7.0, -7e6}) {
    for (const auto scale : {lum::ScaleMode::LINEAR, lum::ScaleMode::LOG10}) {
      RenderScene scene;
      const auto cells = makePolyData(flat({-1, -1, 0, -1, 1, -1, -1, 1, 0, 1, 1, 1}),
                                      {.polys = {{0, 1, 4, 3}, {1, 2, 5, 4}}});
      // As a file has it: rounded.
      cells->GetCellData()->AddArray(makeArray(
          "pressure", {static_cast<float>(value), static_cast<float>(value + 1 + std::abs(value))}));
      cells->GetPointData()->AddArray(makeArray("pressure", std::vector(6, static_cast<float>(value))));
      auto& surface = scene.addSurface(cells, {1, 1, 1});
      auto& table = colorByArray(surface, "pressure", lum::DataLocation::CELLS,
                                 {0, 0, 1, 1, 1, 1, 1, 1, 0, 1, 0, 1, 1, 0, 0, 1});
      table.setScalarRange({value, value});
      table.setScaleMode(scale);
      const Picture picture = scene.render();
      EXPECT_EQ(at(picture, -0.5, 0), (Picture::Pixel{0, 255, 0})) << value;
      EXPECT_EQ(at(picture, 0.5, 0), (Picture::Pixel{255, 0, 0})) << value;
      surface.getAttributes<lum::DataLocationAttributes>().setDataLocation(lum::DataLocation::POINTS);
      EXPECT_EQ(at(scene.render(), -0.5, 0), (Picture::Pixel{0, 255, 0})) << value;
    }
  }
}

TEST(ScenePictureTest, LeavesOutPointsThatAreNotFinite) {
  RenderScene scene;
  const auto surface = makePolyData(flat({-1, -1, 0, -1, 0, 1, -1, 1, NAN, 0, 1e30F, 0}),
                                    {.polys = {{1, 2, 4}, {0, 1, 2, 3}}});
  surface->GetCellData()->AddArray(makeArray("s", {0, 1}));
  auto& drawable = scene.addSurface(surface, {1, 0, 0});
  const auto line =
      makePolyData(flat({0.1F, 0, 0.4F, 0, INFINITY, 0, 0.5F, 0, 0.8F, 0}), {.lines = {{0, 1, 2, 3, 4}}});
  scene.add<lum::PolyLineDrawable>(line, {0, 1, 0}).getAttributes<lum::LineAttributes>().setLineWidth(4);
  scene.add<lum::PointSphereDrawable>(makePolyData(flat({NAN, 0, 0.5F, 0.5F}), {}), {0, 0, 1})
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

TEST(ScenePictureTest, RefusesSizesThatOpenGlDoesNotDraw) {
  const RenderScene scene;
  EXPECT_THROW(renderPicture(scene.node(), {1 << 20, 1}), RenderingUnavailable);
  EXPECT_THROW(renderPicture(scene.node(), {0, 1}), InternalError);
  EXPECT_THROW(renderPicture(scene.node(), {.width = 1, .height = 1, .scale = 0.0}), InternalError);
}

TEST(ScenePictureTest, IsDrawnInTheLeastAndGreatestSizes) {
  RenderScene scene;
  scene.addSurface(makeRectangle(-9999, 9999, -1, 1), {1, 0, 0});
  const Picture dot = renderPicture(scene.node(), {.width = 9, .height = 3, .scale = 0.01});
  EXPECT_EQ(dot.getWidth() * dot.getHeight(), 1);
  // Twice as large, for smooth edges, it is too large for OpenGL.
  EXPECT_EQ(renderPicture(scene.node(), {.width = 10000, .height = 2}).at(5000, 1), RED);
}

TEST(ScenePictureTest, LeavesTheHostItsContext) {
  const RenderScene scene;
  const EglContext hosts;
  hosts.makeCurrent();
  scene.render();
  EXPECT_TRUE(hosts.isCurrent());
  hosts.release();
  scene.render();
  EXPECT_EQ(eglGetCurrentContext(), EGL_NO_CONTEXT);
}

TEST(ScenePictureTest, IsDrawnInSeveralWindowsInTurn) {
  RenderScene scene;
  scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {0, 1, 0});
  SceneWindow first(scene);
  const Picture picture = first.draw();
  const RenderScene other;
  { const SceneWindow second(other); }
  EXPECT_EQ(first.draw(), picture);
}

/// Runs in a process of its own: drivers are looked up once.
TEST(ScenePictureDeathTest, ReportsMissingOpenGl) {
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

TEST(ScenePictureTest, LeavesTheBackgroundTransparent) {
  RenderScene scene;
  lum::setBackground(scene.node(), {1, 0, 1}, {0, 1, 1});
  for (const auto& [left, opacity] : {std::pair(-1.0F, 1.0), std::pair(0.0F, 0.5)}) {
    auto& surface = scene.addSurface(makeRectangle(left, left + 1, -0.5, 0.5), {0, 0, 0});
    surface.getColorAttributes()->setOpacity(opacity, false);
  }
  const Picture picture = renderPicture(scene.node(), {.width = SIZE, .height = SIZE, .isTransparent = true});
  const auto opacityAt = [&](int column, int row) {
    return picture
        .getBytes()[4 * (static_cast<std::size_t>(row) * SIZE + static_cast<std::size_t>(column)) + 3];
  };
  EXPECT_EQ(opacityAt(SIZE / 4, MIDDLE), 255);
  EXPECT_NEAR(opacityAt(3 * SIZE / 4, MIDDLE), 128, 1);
  EXPECT_EQ(opacityAt(MIDDLE, 1), 0);
  EXPECT_THROW(picture.toJpeg(), InternalError);
}

}  // namespace

}  // namespace vemo
