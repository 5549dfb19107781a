#include "render/RenderScene.h"
#include <vemo/scenegraph/drawables/Overlays.h>
#include <vemo/scenegraph/transforms/Transform.h>

#include <vtkNew.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace vemo {

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

TEST_F(Text, MovesWithItsCollectionAndIsNotSeenBehindTheViewer) {
  attributes.setCoordinateSpace(lum::CoordinateSpace::MODEL);
  moveTo(0.2, -0.4, -3);
  lum::Ptr<lum::SimpleTransform> transform(
      new lum::SimpleTransform(lum::ClassNameNodeInitializer(lum::SimpleTransform::getClassName())));
  transform->setTranslation({-0.5, 0, 0});
  scene.drawables().getBaseAttributes().setTransform(transform.get());
  EXPECT_NEAR(ink()[0], 105, 4);
  scene.canvas().getCameraAttributes().setProjectionMode(lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
  moveTo(0.7, 0, 7);
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

TEST_F(Text, IsSeenOnAnImageThatStandsBeforeIt) {
  vtkNew<vtkUnsignedCharArray> white;
  white->InsertNextValue(255);
  auto& image = scene.drawables().findOrCreate<lum::ImageDrawable>("image");
  image.getImageAttributes().setPixels(white, 1, 1);
  auto& later = scene.drawables().findOrCreate<lum::TextDrawable>("later");
  later.getAnnotationAttributes().setText("Hxx");
  later.getTextAttributes().setForegroundColor(0x0000FFFF);
  later.getTextAttributes().setFontSize(0.1);
  EXPECT_GT(countPixels(scene.render(), {0, 0, 255}, 60), 50);
}

TEST(Image, IsNotDrawnWhenItSpansNothing) {
  RenderScene scene;
  auto& attributes = scene.drawables().findOrCreate<lum::ImageDrawable>("image").getImageAttributes();
  vtkNew<vtkUnsignedCharArray> white;
  white->InsertNextValue(255);
  attributes.setPixels(white, 1, 1);
  attributes.setCoordinateSpace(lum::CoordinateSpace::MODEL);
  EXPECT_GT(countDifferences(scene.render(), Picture(SIZE, SIZE), 0), 0);
  attributes.setXAxis({0, 0, 0});
  EXPECT_EQ(countDifferences(scene.render(), Picture(SIZE, SIZE), 0), 0);
}

}  // namespace

}  // namespace vemo
