#include "SceneFixture.h"
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/AxesItem.h>
#include <vemo/import/items/Font.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

class AxesItemTest : public SceneFixture {};

TEST_F(AxesItemTest, BecomeOneTriadWhoeverNamesThem) {
  auto& drawables = convert(
                        "<axes visibility='1' textColor='ff0000ff'/>"
                        "<axes visibility='0'><xaxis z='1'/></axes>")
                        .getOrientationCanvas()
                        .getDrawableCollection();
  ASSERT_EQ(drawables.getNodeCount(), 1U);
  auto* const triad = drawables.find<lum::TriadDrawable>("TriadDrawable");
  ASSERT_TRUE(triad);
  EXPECT_FALSE(triad->getBaseAttributes().getVisibility()) << "the second one's";
  EXPECT_TRUE(logHas(takeLog(), "***** AxesItem::addToCollection is being added *****"));
}

TEST_F(AxesItemTest, NeedTheModelsCamera) {
  SharedBySiblings shared;
  shared.sceneNode = new lum::SceneNode(lum::ClassNameNodeInitializer(lum::SceneNode::getClassName()));
  auto& collection = shared.sceneNode->getModelCanvas().getDrawableCollection();
  EXPECT_EQ(failureOf([&] { AxesItem("axes").addToCollection(shared, collection, 1, ""); }),
            "InternalError: Must be already set by Scene | modelCanvas.hasCameraAttributes()");
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

}  // namespace vemo
