#include "render/SceneWindow.h"
#include <vemo/scenegraph/drawables/ImageDrawable.h>

#include <vtkActor.h>
#include <vtkCellData.h>
#include <vtkCollectionRange.h>
#include <vtkPropCollection.h>
#include <vtkUnsignedCharArray.h>

#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace vemo {

namespace {

constexpr Picture::Pixel WHITE = {255, 255, 255};
constexpr Picture::Pixel YELLOW = {255, 255, 0};
constexpr std::uint32_t YELLOW_RGBA = 0xFFFF00FF;

void write(lum::TextDrawable& drawable, std::uint32_t color) {
  drawable.getAnnotationAttributes().setText("Hxx");
  drawable.getTextAttributes().setForegroundColor(color);
  drawable.getTextAttributes().setFontSize(0.1);
}

/// A white pixel over the window, or over the square from 0 to 1 of the model.
lum::ImageDrawable& addImage(RenderScene& scene) {
  auto& image = scene.drawables().findOrCreate<lum::ImageDrawable>("image");
  image.getImageAttributes().setPixels(makeArray<vtkUnsignedCharArray>("pixels", {255}), 1, 1);
  return image;
}

lum::LegendDrawable& addLegend(RenderScene& scene) {
  return scene.node().getForegroundCanvas().getDrawableCollection().findOrCreate<lum::LegendDrawable>();
}

class TextTest : public testing::Test {
 protected:
  TextTest() { write(drawable, YELLOW_RGBA); }
  void moveTo(double x, double y, double z = 0) {
    drawable.getPositionAttributes().setPosition({x, y, z}, false);
  }
  PixelBox ink() const { return inkOn(scene.render(), BLACK); }

  RenderScene scene;
  lum::TextDrawable& drawable = scene.drawables().findOrCreate<lum::TextDrawable>("text");
  lum::AnnotationAttributes& attributes = drawable.getAnnotationAttributes();
  lum::TextAttributes& style = drawable.getTextAttributes();
};

TEST_F(TextTest, HasBackslashesAndDollarSigns) {
  int width = 0;
  for (const char* const longer : {"x$$", "x\\$$", "x\\\\$$"}) {
    attributes.setText(longer);
    EXPECT_GT(ink().width(), width + 2) << longer;
    width = ink().width();
  }
}

TEST_F(TextTest, MovesWithItsCollectionAndIsNotSeenBehindTheViewer) {
  attributes.setCoordinateSpace(lum::CoordinateSpace::MODEL);
  moveTo(0.2, -0.4, -3);
  setTransform<lum::SimpleTransform>(scene.drawables()).setTranslation({-0.5, 0, 0});
  EXPECT_NEAR(ink().left, 105, 4);
  moveTo(0.7, 0, 7);
  EXPECT_EQ(ink().right, 0);
  scene.canvas().getCameraAttributes().setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
  EXPECT_EQ(ink().right, 0);
}

TEST_F(TextTest, IsFramedWithTheModel) {
  attributes.setCoordinateSpace(lum::CoordinateSpace::MODEL);
  moveTo(9, 9);
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  SceneWindow window(scene);
  window.renderer.frameModel();
  EXPECT_GT(countPixels(window.draw(), YELLOW, 40), 0);
}

TEST_F(TextTest, IsNotWrittenInLinesOfLessThanAPixel) {
  EXPECT_EQ(inkOn(renderPicture(scene.node(), {.width = 4, .height = 4}), BLACK).count, 0);
}

TEST_F(TextTest, FillsNoMoreThanAFewPictures) {
  attributes.setText(std::string(100, 'H'));
  const int height = inkOn(renderPicture(scene.node(), {.width = 400, .height = 50}), BLACK).height();
  style.setFontSize(1.0);
  const int most = inkOn(renderPicture(scene.node(), {.width = 400, .height = 50}), BLACK).height();
  EXPECT_GT(most, height);
  EXPECT_LT(most, 25);
}

TEST_F(TextTest, IsWrittenAsItsStyleSays) {
  moveTo(0.1, 0.5);
  const Picture plain = scene.render();
  const auto difference = [&](int fontStyle) {
    style.setFontStyle(fontStyle);
    return countDifferences(scene.render(), plain, 40);
  };
  EXPECT_GT(difference(lum::TextAttributes::ITALIC), 20);
  EXPECT_GT(difference(lum::TextAttributes::BOLD), 20);
  EXPECT_GT(countPixels(scene.render(), YELLOW, 60), countPixels(plain, YELLOW, 60) + 20);
  style.setFontStyle(lum::TextAttributes::SHADOW);
  EXPECT_GT(countDifferences(scene.render(), plain), 0);
  for (const char* const family : {"Courier", "Times"}) {
    style.setFontFamilyName(family);
    EXPECT_GT(difference(0), 20) << family;
  }
  style.setFontFamilyName("Arial");
  const PixelBox one = inkOn(plain, BLACK);
  attributes.setText("Hxx\nHxx");
  EXPECT_NEAR(ink().height(), one.height() + 30, 6);
  attributes.setText("Hxx");
  style.setFontSize(0.2);
  EXPECT_NEAR(ink().width(), 2 * one.width(), 5);
}

TEST_F(TextTest, IsDrawnInFrontOfImages) {
  addImage(scene);
  write(scene.drawables().findOrCreate<lum::TextDrawable>("later"), 0x0000FFFF);
  EXPECT_GT(countPixels(scene.render(), {0, 0, 255}, 60), 50);
}

class TriadTest : public testing::Test {
 protected:
  TriadTest() {
    drawable.getTextAttributes().setForegroundColor(YELLOW_RGBA);
    attributes.setAxisLabelHeight(1.0);
    attributes.setUseConstantPixelSize(true);
  }

  RenderScene scene;
  lum::TriadDrawable& drawable = scene.drawables().findOrCreate<lum::TriadDrawable>("triad");
  lum::TriadAttributes& attributes = drawable.getTriadAttributes();
};

TEST_F(TriadTest, LeavesItsAxesRoomBesideTheLabels) {
  attributes.setXAxisLabelText("");
  attributes.setYAxisLabelText("");
  attributes.setZAxisLabelText("H");
  const PixelBox label = boxOf(scene.render(), YELLOW, 40);
  EXPECT_GT(label.height(), 0.08 * SIZE);
  EXPECT_LT(label.height(), 0.16 * SIZE);
}

TEST_F(TriadTest, HidesNothingAtTheViewerAndIsNotSeenBehind) {
  using Mode = lum::CameraAttributes::ProjectionMode;
  scene.addSurface(makeRectangle(-0.1F, 0.1F, -0.1F, 0.1F), {1, 0, 0});
  struct {
    Mode mode;
    double z;
    bool hasScreenSize;
    bool isSeen;
  } const cases[] = {{Mode::PARALLEL, 0, true, true},        {Mode::PERSPECTIVE, 0, true, true},
                     {Mode::PARALLEL, 9, true, false},       {Mode::PERSPECTIVE, 9, true, false},
                     {Mode::PERSPECTIVE, 5, true, false},    {Mode::PARALLEL, 5.2, false, false},
                     {Mode::PERSPECTIVE, 5.2, false, false}, {Mode::PERSPECTIVE, 4.5, false, false}};
  for (const auto& [mode, z, hasScreenSize, isSeen] : cases) {
    scene.canvas().getCameraAttributes().setProjectionMode(mode);
    // Those of a size in the model have a label on the other side of the viewer.
    drawable.getOrientationAttributes().setForwardVector({0, 0, z < 5 ? 1.0 : -1.0});
    drawable.getPositionAttributes().setPosition({hasScreenSize ? 0.5 : 0.05, 0, z}, false);
    attributes.setUseConstantPixelSize(hasScreenSize);
    const Picture picture = scene.render();
    EXPECT_EQ(countPixels(picture, YELLOW, 40) > 0, isSeen) << z;
    EXPECT_TRUE(!hasScreenSize || countPixels(picture, {255, 0, 0}) > 100) << z;
  }
}

TEST(ImageTest, KeepsFineLinesWhenItIsDrawnSmaller) {
  RenderScene scene;
  std::vector<unsigned char> pixels(2048, 255);
  for (std::size_t i = 20; i < pixels.size(); i += 128) {
    pixels[i] = 0;
  }
  addImage(scene).getImageAttributes().setPixels(makeArray<vtkUnsignedCharArray>("pixels", pixels), 2048, 1);
  const Picture picture = scene.render();
  const auto isGrey = [&](int column) { return picture.at(column, SIZE / 2)[0] < 250; };
  int lines = 0;
  for (int column = 1; column < SIZE; ++column) {
    lines += isGrey(column) && !isGrey(column - 1) ? 1 : 0;
  }
  EXPECT_EQ(lines, 16);
}

TEST(ImageTest, HasItsRowsOneAboveTheOtherHoweverNarrowItIs) {
  for (const bool isInModel : {false, true}) {
    for (const int width : {1, 2}) {
      RenderScene scene;
      lum::ImageAttributes& attributes = addImage(scene).getImageAttributes();
      std::vector<unsigned char> pixels(2UL * width, 0);
      pixels.resize(3UL * width, 255);
      attributes.setPixels(makeArray<vtkUnsignedCharArray>("pixels", pixels), width, 3);
      attributes.setCoordinateSpace(isInModel ? lum::CoordinateSpace::MODEL : lum::CoordinateSpace::WINDOW);
      const PixelBox white = boxOf(scene.render(), WHITE);
      EXPECT_GT(white.count, 0) << width;
      EXPECT_EQ(white.count, white.width() * white.height()) << width;
      EXPECT_GT(white.width(), 3 * white.height()) << width;
    }
  }
}

TEST(ImageTest, IsCutByPlanesUnlessItSaysNo) {
  for (const int planes : {1, 8}) {
    for (const bool isClipped : {true, false}) {
      RenderScene scene;
      auto& image = addImage(scene);
      image.getImageAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
      image.getBaseAttributes().setClipPlanesEnabled(isClipped);
      setTransform<lum::SimpleTransform>(image).setTranslation({-0.5, 0, 0});
      for (int i = 0; i < planes; ++i) {
        scene.clip({1, 0, 0}, {0.1 * (i + 1 - planes), 0, 0});
      }
      const PixelBox box = boxOf(scene.render(), WHITE);
      EXPECT_NEAR(box.left, isClipped ? SIZE / 2.0 : SIZE / 4.0, 1) << planes;
      EXPECT_NEAR(box.right, 0.75 * SIZE, 1) << planes;
    }
  }
}

TEST(ImageTest, IsInFrontOfFacesInItsPlaneAndBehindLines) {
  const auto draw = [](bool hasFace, bool hasLine) {
    RenderScene scene;
    scene.canvas().getCameraAttributes().setPosition({3.1, -4.3, 1.7});
    scene.canvas().getCameraAttributes().setViewUp({0, 0, 1});
    scene.canvas().getCameraAttributes().setProjectionMode(
        lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
    addImage(scene).getImageAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
    if (hasFace) {
      scene.addSurface(makeRectangle(-0.7F, 1.1F, -0.9F, 1.3F), {1, 0, 0});
    }
    if (hasLine) {
      scene.add<lum::PolyLineDrawable>(
          makePolyData({{0.1F, 0.21F, 0}, {0.93F, 0.77F, 0}}, {.lines = {{0, 1}}}), {0, 0, 1});
    }
    return scene.render();
  };
  for (const bool hasLine : {false, true}) {
    EXPECT_EQ(countPixels(draw(true, hasLine), WHITE), countPixels(draw(false, hasLine), WHITE));
  }
  const auto isBlue = [](const auto& pixel) { return pixel[2] > pixel[0] + 20; };
  const int line = boxWhere(draw(true, true), isBlue).count;
  EXPECT_GT(line, 50);
  EXPECT_EQ(line, boxWhere(draw(false, true), isBlue).count);
}

/// Seen from the front: from elsewhere, images make room for lines.
TEST(ImageTest, IsBehindEdgesOfSurfacesWithoutFaces) {
  const auto countBlue = [](bool hasImage) {
    RenderScene scene;
    auto& surface = scene.addSurface(makeRectangle(0.2F, 0.8F, 0.1F, 0.7F), {1, 0, 0});
    surface.getAttributes<lum::SurfaceAttributes>().setShaded(false);
    surface.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
    surface.getAttributes<lum::MeshAttributes>().setMeshColor({0, 0, 1});
    if (hasImage) {
      addImage(scene).getImageAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
    }
    return boxWhere(scene.render(), [](const auto& pixel) { return pixel[2] > pixel[0] + 20; }).count;
  };
  const int edges = countBlue(false);
  EXPECT_GT(edges, 300);
  EXPECT_EQ(countBlue(true), edges);
}

TEST(ImageTest, HasOneTextureHoweverOftenItIsShown) {
  RenderScene scene;
  const auto pixels = makeArray<vtkUnsignedCharArray>("pixels", {255});
  for (int i = 0; i < 2; ++i) {
    auto& image = scene.drawables().findOrCreate<lum::ImageDrawable>(std::to_string(i));
    image.getImageAttributes().setPixels(pixels, 1, 1);
    image.getImageAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
    repeat(image, {0.1, 0, 0}, 3);
  }
  std::set<vtkTexture*> textures;
  int actors = 0;
  SceneWindow(scene).forEachLayer([&](vtkRenderer& layer) {
    for (vtkObject* const prop : vtk::Range(layer.GetViewProps())) {
      if (auto* const actor = vtkActor::SafeDownCast(prop)) {
        textures.insert(actor->GetTexture());
        ++actors;
      }
    }
  });
  EXPECT_EQ(actors, 6);
  EXPECT_EQ(textures.size(), 1U);
}

TEST(LegendTest, ShowsAsManyNumbersAsFitAndDrawsUnusableTexts) {
  RenderScene scene;
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({1, 1, 1});
  auto& legend = addLegend(scene);
  legend.getPositionAttributes().setPosition({0.25, 0.125, 0}, false);
  legend.getTextAttributes().setFontSize(0.05);
  auto& table = legend.getColorLookupTable();
  table.setColorValues({1, 0, 0, 1, 0, 1, 0, 1, 0, 0, 1, 1, 1, 1, 0, 1});
  table.setNumColor(4);
  table.setScalarRange({0, 100});
  auto& attributes = legend.getLegendAttributes();
  attributes.setSize({0.5, 0.75});
  attributes.setTitle("Pressure [Pa]");
  attributes.setNumberOfLabels(1000000);

  const Picture picture = scene.render();
  int ticks = 0;
  for (int row = 1; row < SIZE; ++row) {
    ticks += picture.at(95, row)[0] < 100 && picture.at(95, row - 1)[0] >= 100 ? 1 : 0;
  }
  EXPECT_NEAR(ticks, 11, 3);
  attributes.setLabelFormat("%s%n");
  attributes.setTitle("\xff\xfe $x$ \n" + std::string(100000, 'W'));
  legend.getTextAttributes().setFontSize(1e300);
  const Picture senseless = scene.render();
  for (int i = 0; i < SIZE; ++i) {
    EXPECT_EQ(senseless.at(SIZE - 1, i), WHITE) << "nothing is cut";
    EXPECT_EQ(senseless.at(i, 0), WHITE) << "nothing is cut";
  }
  table.setScalarRange({5, 5});
  for (const double illegible : {static_cast<double>(NAN), 1e-4}) {
    legend.getTextAttributes().setFontSize(illegible);
    EXPECT_GT(countPixels(scene.render(), {255, 0, 0}), 100);
  }
}

TEST(LegendTest, ShowsItsColoursInTheSmallestWindow) {
  for (const auto orientation : {lum::LegendOrientation::HORIZONTAL, lum::LegendOrientation::VERTICAL}) {
    RenderScene scene;
    scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({1, 1, 1});
    auto& legend = addLegend(scene);
    legend.getPositionAttributes().setPosition({0.2, 0.1, 0}, false);
    legend.getLegendAttributes().setOrientation(orientation);
    legend.getLegendAttributes().setSize({0.5, 0.5});
    legend.getLegendAttributes().setTitle("t");
    legend.getColorLookupTable().setColorValues({1, 0, 0, 1, 0, 1, 0, 1});
    legend.getColorLookupTable().setNumColor(2);
    const auto expectColors = [&](int width, int height) {
      const Picture picture = renderPicture(scene.node(), {width, height});
      EXPECT_GT(countPixels(picture, {0, 255, 0}), 0) << width << " x " << height;
      const PixelBox red = boxOf(picture, {255, 0, 0});
      EXPECT_GT(red.count, 0) << width << " x " << height;
      EXPECT_LE(red.width(), width / 2) << "leaves room for numbers";
    };
    for (const int height : {4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 30}) {
      expectColors(100, height);
    }
    legend.getLegendAttributes().setLabelFormat("%.60f");
    expectColors(12, 100);
    legend.getTextAttributes().setFontSize(1e-3);
    expectColors(12, 1000);
  }
}

/// One number is not written over another, and none where it has no place.
TEST(LegendTest, ShowsOnlyNumbersThatHaveRoomBelowIt) {
  RenderScene scene;
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({1, 1, 1});
  auto& legend = addLegend(scene);
  legend.getPositionAttributes().setPosition({0.2, 0.3, 0}, false);
  legend.getTextAttributes().setFontSize(0.05);
  auto& attributes = legend.getLegendAttributes();
  attributes.setOrientation(lum::LegendOrientation::HORIZONTAL);
  attributes.setSize({0.6, 0.4});
  attributes.setNumberOfLabels(100);
  legend.getColorLookupTable().setColorValues({1, 0, 0, 1});
  legend.getColorLookupTable().setNumColor(1);
  legend.getColorLookupTable().setScalarRange({1000, 9000});
  const Picture picture = scene.render();
  const int below = SIZE - boxOf(picture, {255, 0, 0}).bottom + 2;
  int ticks = 0;
  for (int column = 1; column < SIZE; ++column) {
    ticks += picture.at(column, below) != WHITE && picture.at(column - 1, below) == WHITE ? 1 : 0;
  }
  EXPECT_NEAR(ticks, 5, 1);
  EXPECT_GT(inkOn(picture, WHITE).left, 0.15 * SIZE);
}

TEST(LegendTest, ShowsTranslucentColoursAsSurfacesDo) {
  RenderScene scene;
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({0, 0, 1});
  const std::vector<double> halfRed = {1, 0, 0, 0.5};
  const auto square = makeRectangle(-0.8F, -0.2F, -0.8F, 0.8F);
  square->GetCellData()->AddArray(makeArray("s", {0}));
  auto& surface = scene.addSurface(square, {1, 1, 1});
  auto& legend = addLegend(scene);
  legend.getPositionAttributes().setPosition({0.6, 0.1, 0}, false);
  legend.getLegendAttributes().setSize({0.2, 0.8});
  legend.getColorLookupTable().setColorValues(halfRed);
  legend.getColorLookupTable().setNumColor(1);
  colorByArray(surface, "s", lum::DataLocation::CELLS, halfRed);
  const Picture picture = scene.render();
  EXPECT_TRUE(isNear(at(picture, -0.5, 0), {128, 0, 127}, 2));
  EXPECT_GT(boxWhere(picture,
                     [](const Picture::Pixel& pixel) {
                       return isNear(pixel, {128, 0, 127}, 2);
                     })
                .right,
            0.6 * SIZE)
      << "the bar has this colour, too";
}

}  // namespace

}  // namespace vemo
