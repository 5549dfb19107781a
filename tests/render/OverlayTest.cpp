#include "render/RenderScene.h"
#include "scenegraph/drawables/Overlays.h"
#include "scenegraph/transforms/Transform.h"

#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using Pixel = Picture::Pixel;

constexpr int SIZE = RenderScene::SIZE;
constexpr Pixel BLACK = {0, 0, 0};

/// The columns and rows (counted from below) that are not black: left, right,
/// bottom, top. All 0 when there are none.
std::array<int, 4> inkBox(const Picture& picture) {
  std::array<int, 4> box{SIZE, 0, SIZE, 0};
  for (int row = 0; row < SIZE; ++row) {
    for (int column = 0; column < SIZE; ++column) {
      if (picture.at(column, row) != BLACK) {
        box[0] = std::min(box[0], column);
        box[1] = std::max(box[1], column + 1);
        box[2] = std::min(box[2], SIZE - row - 1);
        box[3] = std::max(box[3], SIZE - row);
      }
    }
  }
  return box[1] == 0 ? std::array<int, 4>{} : box;
}

class Text : public testing::Test {
 protected:
  Text() {
    attributes.setText("Hxx");
    style.setForegroundColor(0xFFFF00FF);
    style.setFontSize(0.1);
  }
  void moveTo(double x, double y, double z = 0) {
    drawable.getPositionAttributes().setPosition({x, y, z}, false);
  }
  std::array<int, 4> ink() const { return inkBox(scene.render()); }

  RenderScene scene;
  lum::TextDrawable& drawable = scene.drawables().findOrCreate<lum::TextDrawable>("text");
  lum::AnnotationAttributes& attributes = drawable.getAnnotationAttributes();
  lum::TextAttributes& style = drawable.getTextAttributes();
};

TEST_F(Text, StandsInTheWindowByAnyOfItsPoints) {
  moveTo(0.5, 0.5);
  for (int horizontal = 0; horizontal < 3; ++horizontal) {
    for (int vertical = 0; vertical < 3; ++vertical) {
      attributes.setHorizontalAlignment(static_cast<lum::HorizontalAlignment>(horizontal));
      attributes.setVerticalAlignment(static_cast<lum::VerticalAlignment>(vertical));
      const auto box = ink();
      const int width = box[1] - box[0];
      const int height = box[3] - box[2];
      EXPECT_NEAR(width, 48, 12);
      EXPECT_NEAR(height, 19, 5);
      EXPECT_NEAR(box[0] + horizontal * width / 2, SIZE / 2, 4) << horizontal;
      // Letters may reach below the line.
      EXPECT_NEAR(box[2] + vertical * height / 2, SIZE / 2, 7) << vertical;
    }
  }
}

TEST_F(Text, StandsInTheModelInFrontOfAllButNotBehindTheViewer) {
  attributes.setCoordinateSpace(lum::CoordinateSpace::MODEL);
  moveTo(0.2, -0.4, -3);
  EXPECT_NEAR(ink()[0], 180, 4);
  EXPECT_NEAR(ink()[2], 90, 7);
  lum::Ptr<lum::SimpleTransform> transform(
      new lum::SimpleTransform(lum::ClassNameNodeInitializer(lum::SimpleTransform::getClassName())));
  transform->setTranslation({-0.5, 0, 0});
  scene.drawables().getBaseAttributes().setTransform(transform.get());
  EXPECT_NEAR(ink()[0], 105, 4);
  const int yellow = countPixels(scene.render(), {255, 255, 0}, 40);
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {0, 0, 0});
  EXPECT_EQ(countPixels(scene.render(), {255, 255, 0}, 40), yellow);
  scene.canvas().getCameraAttributes().setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
  moveTo(0.2, 0, 7);
  EXPECT_EQ(ink(), (std::array<int, 4>{}));
}

TEST_F(Text, IsWrittenAsItsStyleSays) {
  moveTo(0.1, 0.5);
  const Picture plain = scene.render();
  style.setFontStyle(lum::TextAttributes::SHADOW);
  EXPECT_GT(countDifferences(scene.render(), plain, 0), 0);
  style.setFontStyle(lum::TextAttributes::BOLD);
  EXPECT_GT(countPixels(scene.render(), {255, 255, 0}, 60), countPixels(plain, {255, 255, 0}, 60) + 20);
  style.setFontStyle(lum::TextAttributes::ITALIC);
  EXPECT_GT(countDifferences(scene.render(), plain, 40), 20);
  style.setFontStyle(0);
  for (const char* const family : {"Courier", "Times"}) {
    style.setFontFamilyName(family);
    EXPECT_GT(countDifferences(scene.render(), plain, 40), 20) << family;
  }
  style.setFontFamilyName("Arial");
  const auto one = inkBox(plain);
  attributes.setText("Hxx\nHxx");
  EXPECT_NEAR(ink()[3] - ink()[2], one[3] - one[2] + 30, 6);
  attributes.setText("Hxx");
  style.setFontSize(0.2);
  EXPECT_NEAR(ink()[1] - ink()[0], 2 * (one[1] - one[0]), 5);
}

/// Red and green below, blue and half transparent white above.
vtkSmartPointer<vtkUnsignedCharArray> fourPixels(int components) {
  constexpr unsigned char PIXELS[4][4] = {
      {255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {255, 255, 255, 128}};
  auto pixels = vtkSmartPointer<vtkUnsignedCharArray>::New();
  pixels->SetNumberOfComponents(components);
  for (const auto& pixel : PIXELS) {
    for (int i = 0; i < components; ++i) {
      pixels->InsertNextValue(pixel[components == 2 && i == 1 ? 3 : i]);
    }
  }
  return pixels;
}

TEST(Image, ShowsItsPixelsInWindowAndModel) {
  for (const auto space : {lum::CoordinateSpace::WINDOW, lum::CoordinateSpace::MODEL}) {
    const bool isInModel = space == lum::CoordinateSpace::MODEL;
    RenderScene scene;
    auto& image = scene.drawables().findOrCreate<lum::ImageDrawable>("image");
    auto& attributes = image.getImageAttributes();
    attributes.setCoordinateSpace(space);
    attributes.setXAxis({isInModel ? 1.0 : 0.5, 0, 0});
    attributes.setYAxis({0, isInModel ? 1.0 : 0.5, 0});
    image.getPositionAttributes().setPosition(isInModel ? Vector<3, double>{-1, -1, 0} : Vector<3, double>{},
                                              false);
    // The middles of the four pixels' outer quarters.
    const auto seen = [&] {
      const Picture picture = scene.render();
      EXPECT_EQ(picture.at(160, 280), BLACK);
      EXPECT_EQ(picture.at(20, 140), BLACK);
      return std::array{picture.at(18, 282), picture.at(132, 282), picture.at(18, 168), picture.at(132, 168)};
    };
    for (const int components : {1, 2, 3, 4}) {
      attributes.setPixels(fourPixels(components), 2, 2);
      const auto colors = seen();
      const bool isGrey = components < 3;
      const unsigned char white = components % 2 == 0 ? 128 : 255;
      EXPECT_EQ(colors[0], (isGrey ? Pixel{255, 255, 255} : Pixel{255, 0, 0})) << components;
      EXPECT_EQ(colors[1], (isGrey ? BLACK : Pixel{0, 255, 0})) << components;
      EXPECT_EQ(colors[2], (isGrey ? BLACK : Pixel{0, 0, 255})) << components;
      EXPECT_NEAR(colors[3][1], white, 2) << components;
    }
    image.getColorAttributes()->setOpacity(0.5, false);
    EXPECT_NEAR(seen()[0][0], 128, 2);
    attributes.setXAxis({0, 0, 0});
    EXPECT_EQ(seen()[0], BLACK);
  }
}

}  // namespace
