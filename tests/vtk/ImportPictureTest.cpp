// The picture of an imported scene is that of the scene.

#include "render/Pixels.h"
#include "support/SceneBuilder.h"
#include "vtk/ImportWindow.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/OpenScene.h>
#include <vemo/render/SceneRenderer.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>

#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkImageData.h>
#include <vtkPointData.h>
#include <vtkWindowToImageFilter.h>

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace vemo {

namespace {

constexpr int SIZE = ImportWindow::SIZE;

Picture drawn(const lum::SceneNode& scene) {
  const auto window = EglRenderWindow::open(SIZE, SIZE);
  SceneRenderer renderer(scene);
  renderer.addTo(*window, 0);
  window->Render();
  return Picture::of(*window);
}

void expectSamePicture(lum::SceneNode& scene) {
  ImportWindow window;
  vtkNew<vtkVemoSceneImporter> importer;
  importer->SetScene(&scene);
  window.import(*importer);
  EXPECT_EQ(countDifferences(drawn(scene), window.draw()), 0);
}

class ExamplePictureTest : public testing::TestWithParam<const char*> {};

TEST_P(ExamplePictureTest, IsTheSame) {
  const std::string path = std::string(VEMO_SOURCE_FOLDER "/examples/") + GetParam() + ".zip";
  ImportWindow window;
  vtkNew<vtkVemoSceneImporter> importer;
  importer->SetFileName(path.c_str());
  window.import(*importer);
  ASSERT_TRUE(importer->GetSucceeded()) << importer->GetErrorText();
  const OpenedScene scene = openScene(toWidePath(path));
  EXPECT_EQ(countDifferences(drawn(*scene.findSceneNode()), window.draw()), 0);
}

INSTANTIATE_TEST_SUITE_P(All, ExamplePictureTest,
                         testing::Values("crystal", "diffraction", "drum", "earth", "orbital", "propeller",
                                         "wing"));

TEST(ImportPictureTest, HasEdgesContoursLinesPointsAndDataInAllInstances) {
  SceneBuilder scene;
  const auto bent =
      makePolyData({{-0.9F, -0.5F, 0}, {-0.5F, -0.5F, 0}, {-0.5F, 0, 0}, {-0.9F, 0, 0}, {-0.5F, 0, -1}},
                   {.polys = {{0, 1, 2, 3}, {1, 4, 2}}});
  bent->GetPointData()->AddArray(makeArray("s", {0, 0.25F, 0.5F, 0.75F, 1}));
  auto& surface = scene.add<lum::SurfaceDrawable>(bent);
  colorByArray(surface, "s", lum::DataLocation::POINTS);
  surface.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  surface.getAttributes<lum::ContourAttributes>().setContourVisible(true);
  repeat(surface, {0.5, 0.3, 0}, 3);
  setTransform<lum::SymmetricTransform>(scene.addSurface(bent, {0, 1, 0})).setPlane({1, 0, 0, 0.1});
  scene.add<lum::PolyLineDrawable>(makePolyData(flat({-1, 0.9F, 1, 0.7F}), {.lines = {{0, 1}}}), {1, 1, 0});
  auto& points =
      scene.add<lum::PointSphereDrawable>(makePolyData(flat({-0.5F, 0.8F, 0.5F, 0.6F}), {}), {1, 0, 1});
  points.getAttributes<lum::PointSizeAttributes>().setPointSize(20);
  auto& light = scene.canvas().getLightingAttributes().getLights().findOrCreate<lum::Light>("side");
  light.setIntensity(0.8);
  for (int planes = 1; planes <= 8; ++planes) {
    scene.clip({1, 0.3, 0}, {-0.8 + 0.01 * planes, 0, 0});
  }
  expectSamePicture(scene.node());
}

/// Items of one geometry share a mapper.
TEST(ImportPictureTest, KeepsItemsWhenThoseOfTheSameGeometryAreRemoved) {
  SceneBuilder scene;
  const auto triangle = makePolyData(flat({-0.4F, -0.4F, 0.4F, -0.4F, 0, 0.4F}), {.polys = {{0, 1, 2}}});
  triangle->GetPolys()->ConvertTo32BitStorage();
  scene.addSurface(triangle, {1, 0, 0});
  auto& place = scene.collectionIn(scene.drawables());
  setTransform<lum::SimpleTransform>(place).setTranslation({0.5, 0, 0.1});
  scene.addSurface(triangle, {0, 1, 0}, place);
  ImportWindow window;
  vtkNew<vtkVemoSceneImporter> importer;
  importer->SetScene(&scene.node());
  window.import(*importer);
  const auto countGreen = [&window] {
    return boxWhere(window.draw(), [](const auto& pixel) { return pixel[1] > pixel[0] + 50; }).count;
  };
  const int green = countGreen();
  EXPECT_GT(green, 1000);
  window.renderer->RemoveActor(actorOf(*importer, 0));
  EXPECT_EQ(countGreen(), green);
}

TEST(ImportPictureTest, MixesTranslucentSurfaces) {
  SceneBuilder scene;
  scene.addSurface(makeRectangle(-0.8F, 0.8F, -0.8F, 0.8F, -0.5F), {1, 1, 1});
  for (int i = 0; i < 5; ++i) {
    const auto step = static_cast<float>(i) / 10.0F;
    auto& pane =
        scene.addSurface(makeRectangle(step - 0.9F, step, -step, 0.9F - step, 0.5F - step), {1, 0.2 * i, 0});
    pane.getColorAttributes()->setOpacity(0.3, false);
    pane.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  }
  expectSamePicture(scene.node());
}

TEST(ImportPictureTest, HasWhatIsBeforeAndBehindTheModel) {
  SceneBuilder scene;
  lum::SceneNode& node = scene.node();
  scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {1, 0, 0});
  auto& background = node.getBackgroundCanvas().getBackgroundAttributes();
  background.setColorMode(lum::BackgroundColorModes::TOP_BOTTOM);
  background.setColor1({0, 0, 1});
  background.setColor2({1, 1, 0});
  scene.addSurface(makeRectangle(-0.4F, 0.4F, -0.4F, 0.4F), {0, 1, 0},
                   node.getBackgroundCanvas().getDrawableCollection());
  auto& foreground = node.getForegroundCanvas().getDrawableCollection();
  foreground.findOrCreate<lum::TextDrawable>("note").getAnnotationAttributes().setText("before it");
  foreground.findOrCreate<lum::LegendDrawable>("legend");
  node.getOrientationCanvas().getDrawableCollection().findOrCreate<lum::TriadDrawable>("axes");
  expectSamePicture(node);
}

TEST(ImportPictureTest, HasItsBackgroundWhenVtkDrawsItAgainInParts) {
  SceneBuilder scene;
  auto& background = scene.node().getBackgroundCanvas().getBackgroundAttributes();
  background.setColorMode(lum::BackgroundColorModes::TOP_BOTTOM);
  background.setColor1({0, 0, 1});
  background.setColor2({1, 1, 0});
  ImportWindow window;
  vtkNew<vtkVemoSceneImporter> importer;
  importer->SetScene(&scene.node());
  window.import(*importer);
  const Picture expected = drawn(scene.node());
  for (const int scale : {1, 2}) {
    vtkNew<vtkWindowToImageFilter> pictures;
    pictures->SetInput(window.window);
    pictures->SetScale(scale);
    pictures->Update();
    vtkImageData& image = *pictures->GetOutput();
    for (const int row : {1, SIZE / 4, SIZE / 2, SIZE - 2}) {
      const auto* const pixel = static_cast<const unsigned char*>(
          image.GetScalarPointer(scale * SIZE / 2, scale * (SIZE - 1 - row), 0));
      for (std::size_t channel = 0; channel < 3; ++channel) {
        EXPECT_NEAR(pixel[channel], expected.at(SIZE / 2, row)[channel], 4) << scale << " times, row " << row;
      }
    }
  }
}

TEST(ImportPictureTest, TellsDepthsApartAsFinely) {
  SceneBuilder scene;
  scene.canvas().getCameraAttributes().setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
  scene.addSurface(makeRectangle(-0.1F, 0.1F, -0.1F, 0.1F), {0, 0, 1});
  scene.addSurface(makeRectangle(-10, 10, -10, 10, -45), {1, 0, 0});
  const auto tilted = makePolyData({{-10, -10, -45.002F}, {10, -10, -45}, {10, 10, -44.998F}, {-10, 10, -45}},
                                   {.polys = {{0, 1, 2, 3}}});
  scene.addSurface(tilted, {0, 1, 0});
  expectSamePicture(scene.node());
}

TEST(ImportPictureTest, KeepsToTheRenderersPartOfTheWindow) {
  SceneBuilder scene;
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  scene.canvas().getAttributes<lum::CanvasPositionAttributes>().setPosition({0.5, 0});
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({0, 0, 1});
  ImportWindow window;
  window.renderer->SetViewport(0, 0, 0.5, 1);
  vtkNew<vtkRenderer> other;
  other->SetViewport(0.5, 0, 1, 1);
  other->SetBackground(0, 1, 0);
  window.window->AddRenderer(other);
  vtkNew<vtkVemoSceneImporter> importer;
  importer->SetScene(&scene.node());
  window.import(*importer);
  const Picture picture = window.draw();
  EXPECT_EQ(picture.at(SIZE / 8, SIZE / 2), (Picture::Pixel{0, 0, 255}));
  EXPECT_EQ(picture.at(SIZE * 3 / 8, SIZE / 2), (Picture::Pixel{255, 0, 0}));
  EXPECT_EQ(picture.at(SIZE * 3 / 4, SIZE / 2), (Picture::Pixel{0, 255, 0}));
  importer->Clear();
  EXPECT_EQ(window.renderer->GetViewport()[2], 0.5);
}

TEST(ImportPictureTest, HasThePartOfItsOwnModelAmongOtherScenes) {
  SceneBuilder half;
  half.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  half.canvas().getAttributes<lum::CanvasPositionAttributes>().setPosition({0.5, 0});
  SceneBuilder quarter;
  quarter.addSurface(makeRectangle(-1, 1, -1, 1), {0, 1, 0});
  quarter.canvas().getAttributes<lum::CanvasPositionAttributes>().setPosition({0.75, 0});
  SceneBuilder whole;
  whole.addSurface(makeRectangle(-1, 1, -1, 1), {0, 0, 1});
  const auto partOfWindow = [](ImportWindow& window) {
    const double* const viewport = window.renderer->GetViewport();
    return std::vector<double>(viewport, viewport + 4);
  };
  ImportWindow window;
  std::array<vtkNew<vtkVemoSceneImporter>, 3> importers;
  std::size_t next = 0;
  for (SceneBuilder* const scene : {&half, &quarter, &whole}) {
    importers[next]->SetScene(&scene->node());
    window.import(*importers[next++]);
  }
  EXPECT_EQ(partOfWindow(window), (std::vector<double>{0, 0, 1, 1}));
  importers[2]->Clear();
  EXPECT_EQ(partOfWindow(window), (std::vector<double>{0.75, 0, 1, 1}));
  importers[0]->Clear();
  EXPECT_EQ(partOfWindow(window), (std::vector<double>{0.75, 0, 1, 1}));
  EXPECT_EQ(countDifferences(drawn(quarter.node()), window.draw()), 0);
  window.renderer->SetViewport(0, 0, 0.5, 1);
  importers[1]->Clear();
  EXPECT_EQ(partOfWindow(window), (std::vector<double>{0, 0, 0.5, 1})) << "the program has changed it";
}

TEST(ImportPictureTest, HasTextsInTheSizeOfThePart) {
  SceneBuilder scene;
  auto& text = scene.node().getForegroundCanvas().getDrawableCollection().findOrCreate<lum::TextDrawable>();
  text.getAnnotationAttributes().setText("Text");
  text.getTextAttributes().setFontSize(0.2);
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({1, 1, 1});
  ImportWindow window;
  window.window->SetSize(2 * SIZE, 2 * SIZE);
  window.renderer->SetViewport(0, 0, 0.5, 0.5);
  vtkNew<vtkVemoSceneImporter> importer;
  importer->SetScene(&scene.node());
  window.import(*importer);
  const Picture picture = window.draw();
  const Picture whole = drawn(scene.node());
  int differences = 0;
  for (int y = 0; y < SIZE; ++y) {
    for (int x = 0; x < SIZE; ++x) {
      differences += picture.at(x, SIZE + y) != whole.at(x, y) ? 1 : 0;
    }
  }
  EXPECT_EQ(differences, 0);
}

TEST(ImportPictureTest, ShowsHiddenItemsWhereverTheyAre) {
  SceneBuilder scene;
  scene.canvas().getCameraAttributes().setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
  scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {0, 0, 1});
  auto& hidden = scene.addSurface(makeRectangle(-10, 10, -10, 10, -45), {1, 0, 0});
  hidden.setName("hidden");
  hidden.getBaseAttributes().setVisibility(false, false);
  ImportWindow window;
  vtkNew<vtkVemoSceneImporter> importer;
  importer->SetScene(&scene.node());
  window.import(*importer);
  window.draw();
  importer->SetItemVisibility(importer->FindItem("hidden"), true);
  hidden.getBaseAttributes().setVisibility(true, false);
  EXPECT_EQ(countDifferences(drawn(scene.node()), window.draw()), 0);
}

TEST(ImportPictureTest, IsThatOfTheSceneInARendererThatHasDrawnBefore) {
  SceneBuilder scene;
  scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {0.5, 0.5, 0.5});
  scene.canvas().getCameraAttributes().setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
  ImportWindow window;
  window.renderer->GetActiveCamera()->SetViewAngle(60);
  window.renderer->GradientBackgroundOn();
  window.draw();
  vtkNew<vtkVemoSceneImporter> importer;
  importer->SetScene(&scene.node());
  window.import(*importer);
  EXPECT_EQ(countDifferences(drawn(scene.node()), window.draw()), 0);
}

}  // namespace

}  // namespace vemo
