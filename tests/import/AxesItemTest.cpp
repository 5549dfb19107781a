#include "SceneFixture.h"
#include "scenegraph/drawables/TriadDrawable.h"
#include "vemoview/import/AxesItem.h"
#include "vemoview/import/Font.h"
#include "vemoview/import/SharedBySiblings.h"

#include <gtest/gtest.h>

namespace {

using Vector3 = Vector<3, double>;

class AxesItemTest : public SceneFixture {};

TEST_F(AxesItemTest, BecomeOneTriadThatTurnsWithTheModel) {
  auto& node = convert(
      "<view><position x='5'/></view><axes visibility='1' textColor='ff0000ff'/>"
      "<axes visibility='0'><xaxis z='1'/></axes>");
  auto& canvas = node.getOrientationCanvas();
  ASSERT_EQ(canvas.getDrawableCollection().getNodeCount(), 1U);
  auto* triad = canvas.getDrawableCollection().find<lum::TriadDrawable>("TriadDrawable");
  ASSERT_TRUE(triad);
  EXPECT_EQ(triad->getCameraAttributes(), node.getModelCanvas().hasCameraAttributes());
  EXPECT_FALSE(triad->getBaseAttributes().getVisibility()) << "the second one's";
  EXPECT_FALSE(triad->getTriadAttributes().getUseConstantPixelSize());
  EXPECT_EQ(triad->getTextAttributes().getForegroundColor(), 0x000000FFU);

  const auto& camera = canvas.getCameraAttributes();
  EXPECT_EQ(camera.getPosition(), (Vector3{0, 0, -1}));
  EXPECT_EQ(camera.getFocalPoint(), (Vector3{}));
  EXPECT_EQ(camera.getViewUp(), (Vector3{0, 1, 0}));
  EXPECT_EQ(camera.getProjectionMode(), lum::CameraAttributes::ProjectionMode{1});
  EXPECT_EQ(camera.getParallelScale(), 2.2);
  EXPECT_TRUE(logHas(takeLog(), "***** AxesItem::addToCollection is being added *****"));
}

TEST_F(AxesItemTest, NeedTheModelsCamera) {
  SharedBySiblings shared;
  shared.sceneNode = new lum::SceneNode(lum::ClassNameNodeInitializer(lum::SceneNode::getClassName()));
  auto& collection = shared.sceneNode->getModelCanvas().getDrawableCollection();
  EXPECT_EQ(failureOf([&] { AxesItem("axes").addToCollection(shared, collection, 1, ""); }),
            "InternalError: Must be already set by Scene | modelCanvas.hasCameraAttributes()");
}

TEST_F(AxesItemTest, CoordinateSystemsStandInTheModel) {
  convert(
      assembly("A",
               "<coordinatesystem name='cs' visibility='1' textColor='000000ff' xlabel='u' zlabel='w'>"
               "<origin x='1' y='2' z='3'/><xaxis x='9'/><yaxis x='1'/><zaxis y='1'/></coordinatesystem>"));
  auto* triad = collection("A").find<lum::TriadDrawable>("cs");
  ASSERT_TRUE(triad);
  EXPECT_EQ(triad->getPositionAttributes().getPosition(), (Vector3{1, 2, 3}));
  EXPECT_TRUE(triad->getBaseAttributes().getVisibility());
  EXPECT_EQ(triad->getOrientationAttributes().getForwardVector(), (Vector3{0, 1, 0}));
  EXPECT_EQ(triad->getOrientationAttributes().getUpVector(), (Vector3{1, 0, 0}));
  EXPECT_EQ(triad->getTriadAttributes().getAxisLabelHeight(), 0.035);
  EXPECT_EQ(triad->getTriadAttributes().getXAxisLabelText(), "u");
  EXPECT_EQ(triad->getTriadAttributes().getYAxisLabelText(), "");
  EXPECT_EQ(triad->getTriadAttributes().getZAxisLabelText(), "w");
  EXPECT_EQ(triad->getCameraAttributes(), nullptr);
}

TEST_F(AxesItemTest, FontsStyleTexts) {
  const struct {
    const char* attributes;
    const char* family;
    unsigned style;
  } cases[] = {{"facename='Courier' bold='true' shadow='true'", "Courier", 6},
               {"facename='Times' italic='true'", "Times", 1},
               {"facename='courier'", "Arial", 0},
               {"bold='true'", "Arial", 2}};
  const lum::Ptr<lum::TextAttributes> text(
      new lum::TextAttributes(lum::ClassNameNodeInitializer(lum::TextAttributes::getClassName())));
  for (const auto& [attributes, family, style] : cases) {
    Font font;
    font.read(*elementOf("<font " + std::string(attributes) + " textColor='ff800033'/>"), nullptr);
    font.applyTo(*text);
    EXPECT_EQ(text->getFontFamilyName(), family);
    EXPECT_EQ(text->getFontStyle(), style);
    EXPECT_EQ(text->getForegroundColor(), 0xFF8000FFU);
  }
}

}  // namespace
