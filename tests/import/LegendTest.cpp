#include "SceneFixture.h"
#include <vemo/scenegraph/drawables/Overlays.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Vector2 = Vector<2, double>;

const std::string COLORMAPS =
    "<colormap name='a' min='1' max='2' title='Speed'><c>ff0000ff</c></colormap>"
    "<colormap name='b' min='3' max='4' log10='true'><c>00ff00ff</c><c>0000ffff</c></colormap>";

class LegendTest : public SceneFixture {
 protected:
  lum::DrawableCollection& foreground() { return _sceneNode->getForegroundCanvas().getDrawableCollection(); }
  /// What the one legend of an assembly "A" becomes.
  lum::LegendDrawable& convertLegend(const std::string& attributes, const std::string& children = "") {
    convert(assembly("A", "<legend visibility='1' " + attributes + ">" + children + "</legend>" + COLORMAPS +
                              geometry("polys='tri'")));
    EXPECT_EQ(foreground().getNodeCount(), 1U);
    return dynamic_cast<lum::LegendDrawable&>(foreground().getNode(0));
  }
};

TEST_F(LegendTest, WithoutAnythingStatedShowsTheActiveColormap) {
  auto& legend = convertLegend("");
  const auto& attributes = legend.getLegendAttributes();
  EXPECT_EQ(legend.getName(), "A") << "its assembly's";
  EXPECT_EQ(attributes.getTitle(), "Speed");
  EXPECT_EQ(attributes.getOrientation(), lum::LegendOrientation::VERTICAL);
  EXPECT_EQ(attributes.getNumberOfLabels(), 5);
  EXPECT_EQ(attributes.getLabelFormat(), "%.4g");
  EXPECT_EQ(legend.getColorLookupTable().getScalarRange(), (Vector2{1, 2}));
  EXPECT_GT(attributes.getSize()[1], attributes.getSize()[0]);
  EXPECT_THAT(warnings(), ElementsAre());

  const auto& lying = convertLegend("orientation='HORIZONTAL'").getLegendAttributes();
  EXPECT_GT(lying.getSize()[0], lying.getSize()[1]);
}

TEST_F(LegendTest, WarnsOfValuesThatCannotBeAndKeepsTheDefaults) {
  const auto& attributes = convertLegend(
                               "orientation='vertical' numberOfLabels='1000' numberFormat='%s' "
                               "colormap='absent'",
                               "<font facename='Times'/>")
                               .getLegendAttributes();
  EXPECT_THAT(warnings(), ElementsAre(HasSubstr("\"vertical\" of \"orientation\""),
                                      HasSubstr("\"1000\" of \"numberOfLabels\""),
                                      HasSubstr("\"%s\" of \"numberFormat\""), HasSubstr("The font")));
  EXPECT_EQ(attributes.getNumberOfLabels(), 5);
  EXPECT_EQ(attributes.getTitle(), "Speed");
  EXPECT_TRUE(logHas(takeLog(), "The legend of \"A\" names a colormap \"absent\" that is not there"));
  convertLegend("numberOfLabels='few' orientation='" + std::string(99, 'x') + "'");
  EXPECT_THAT(warnings(), ElementsAre(HasSubstr("The value of 99 bytes of \"orientation\""),
                                      HasSubstr("it is not a number")));
}

TEST_F(LegendTest, TakesOnlyFormatsForOneNumber) {
  const std::string longest(60, 'x');
  for (const std::string& format :
       {std::string("%g"), std::string("%-#6.3lE"), std::string("%%%+ 010.2f%%"), longest + "%.2f"}) {
    EXPECT_EQ(convertLegend("numberFormat='" + format + "'").getLegendAttributes().getLabelFormat(), format);
  }
  for (const std::string& format :
       {std::string(), std::string("text"), std::string("100%"), std::string("%g %g"), std::string("%d"),
        std::string("%n"), std::string("%*g"), std::string("%100g"), std::string("%.999f"),
        std::string("%Lg"), std::string("%1$g"), std::string("%%g"), longest + "%.22f"}) {
    EXPECT_EQ(convertLegend("numberFormat='" + format + "'").getLegendAttributes().getLabelFormat(), "%.4g")
        << format;
  }
}

TEST_F(LegendTest, NestedOnesStandInTheForegroundAndShowWhatColorsTheirAssembly) {
  const std::string inner =
      "<colormap name='inner' min='5' max='6'><c>ff0000ff</c></colormap>" + geometry("polys='tri'");
  const auto rangeIn = [&](const std::string& name) {
    return foreground().find<lum::LegendDrawable>(name)->getColorLookupTable().getScalarRange();
  };
  convert(assembly("A", assembly("B", "<legend name='l'/>" + inner) + "<legend/>"));
  ASSERT_EQ(foreground().getNodeCount(), 1U);
  EXPECT_EQ(rangeIn("l"), (Vector2{5, 6}));
  EXPECT_FALSE(foreground().find<lum::LegendDrawable>()->getBaseAttributes().getVisibility());
  EXPECT_TRUE(logHas(takeLog(), "The legend of \"A\" has no colormap and is left out"));

  convert(assembly("A", COLORMAPS + assembly("B", "<legend/>" + inner) +
                            assembly("C", "<legend colormap='inner'/>" + inner)) +
          assembly("D", "<legend/>" + inner));
  EXPECT_EQ(rangeIn("B"), (Vector2{1, 2})) << "the outer colormap colours it";
  EXPECT_EQ(rangeIn("C"), (Vector2{5, 6}));
  EXPECT_EQ(rangeIn("D"), (Vector2{5, 6}));
}

}  // namespace

}  // namespace vemo
