// What holds for items of every kind, and what items do that a host makes or
// converts by itself.

#include "SceneFixture.h"
#include "support/Nodes.h"
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/Annotation.h>
#include <vemo/import/items/AxesItem.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/GeometryTransform.h>
#include <vemo/import/items/Gradient.h>
#include <vemo/import/items/Image2D.h>
#include <vemo/import/items/Legend.h>
#include <vemo/import/items/ReflectTransform.h>
#include <vemo/import/items/RepeatTransform.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>

#include <gmock/gmock.h>
#include <map>
#include <string>

namespace vemo {

namespace {

class ItemRules : public SceneFixture {};

TEST_F(ItemRules, RefuseVersionsOfTheFuture) {
  const std::string colors =
      " color='ffffffff' textColor='ffffffff' topColor='ffffffff' bottomColor='ffffffff'";
  for (const std::string kind :
       {"assembly", "colormap", "legend", "transform", "repeat", "reflect", "axes", "coordinatesystem",
        "image2d", "image3d", "light", "clip", "view", "gradient", "annotation"}) {
    const auto withVersion = [&](int version) {
      const std::string xml = "<" + kind + colors + " version='" + std::to_string(version) + "'/>";
      return failureOf([&] { read(xml); });
    };
    const int newest = kind == "reflect" ? 2 : 1;
    EXPECT_EQ(withVersion(newest), "") << kind;
    EXPECT_EQ(withVersion(newest + 1), "FutureVersionException:  | scene/" + kind + ":1:");
  }
}

TEST_F(ItemRules, LeaveAnItemOfTheFutureUntouched) {
  AssemblyItem item("before");
  EXPECT_THROW(item.read(*elementOf("<assembly name='after' visibility='0.5' version='2'/>"), nullptr),
               FutureVersionException);
  EXPECT_EQ(item.getName(), "before");
  EXPECT_EQ(item.getVisibility(), 1.0);
}

TEST_F(ItemRules, HideWhatStatesNoVisibility) {
  const std::map<std::string, bool> hidden = {
      {"", true}, {"visibility='0.001'", true}, {"visibility='0.0011'", false}, {"visibility='1'", false}};
  for (const auto& [attribute, expected] : hidden) {
    AssemblyItem item("before");
    item.read(*elementOf("<assembly " + attribute + "/>"), nullptr);
    EXPECT_EQ(item.hasHiddenItems(), expected) << attribute;
    EXPECT_EQ(item.getName(), "") << "a missing name is an empty one";
  }
}

TEST_F(ItemRules, LegendsTakeOnlyFormatsForOneNumber) {
  const auto formatOf = [&](const std::string& format) {
    convert(assembly("A", "<legend numberFormat='" + format + "'/><colormap/>" + geometry("")));
    auto& foreground = _sceneNode->getForegroundCanvas().getDrawableCollection();
    return foreground.find<lum::LegendDrawable>()->getLegendAttributes().getLabelFormat();
  };
  const std::string longest(60, 'x');
  for (const std::string& format :
       {std::string("%g"), std::string("%-#6.3lE"), std::string("%%%+ 010.2f%%"), longest + "%.2f"}) {
    EXPECT_EQ(formatOf(format), format);
  }
  for (const std::string& format :
       {std::string(), std::string("text"), std::string("100%"), std::string("%g %g"), std::string("%d"),
        std::string("%n"), std::string("%*g"), std::string("%100g"), std::string("%.999f"),
        std::string("%Lg"), std::string("%1$g"), std::string("%%g"), longest + "%.22f"}) {
    EXPECT_EQ(formatOf(format), "%.4g") << format;
  }
}

TEST_F(ItemRules, LegendsMadeInCodeHaveAllThatFilesState) {
  convert("");
  Legend legend("made");
  legend.setOrientation(lum::LegendOrientation::HORIZONTAL);
  legend.setLabelCount(3);
  legend.setNumberFormat("%.1f");
  legend.setTextHeight(0.5);
  EXPECT_EQ(failureOf([&] { legend.setLabelCount(65); }).substr(0, 14), "InternalError:");
  EXPECT_EQ(failureOf([&] { legend.setNumberFormat("%s"); }).substr(0, 14), "InternalError:");
  const Colormap colormap;
  SharedBySiblings shared;
  shared.colormap = &colormap;
  legend.addToCollection(shared, collection(""), 1, "");
  const auto& made = drawable<lum::LegendDrawable>("");
  const auto& attributes = *made.findAttributes<lum::LegendAttributes>();
  EXPECT_EQ(attributes.getOrientation(), lum::LegendOrientation::HORIZONTAL);
  EXPECT_EQ(attributes.getNumberOfLabels(), 3);
  EXPECT_EQ(attributes.getLabelFormat(), "%.1f");
  EXPECT_EQ(made.findAttributes<lum::TextAttributes>()->getFontSize(), 0.5);
}

TEST_F(ItemRules, KeepATransformOfTheRightKindAndReplaceAnother) {
  auto& attributes = convert("").getModelCanvas().getDrawableCollection().getBaseAttributes();
  const lum::Ptr<lum::Transform> mirrored = ReflectTransform().makeLumTransform(attributes);
  EXPECT_EQ(ReflectTransform().makeLumTransform(attributes), mirrored.get());
  const lum::Transform* simple = GeometryTransform().makeLumTransform(attributes);
  EXPECT_EQ(simple->className(), "SimpleTransform");
  EXPECT_EQ(attributes.getTransform(), simple);
  EXPECT_EQ(RepeatTransform().makeLumTransform(attributes)->className(), "PeriodicRepeatTransform");

  const std::string message = "InternalError: correct type must be enforced by makeLumTransform function | ";
  EXPECT_EQ(failureOf([&] { GeometryTransform().apply(*mirrored); }), message + "lumSimpleTransform");
  EXPECT_EQ(failureOf([&] { RepeatTransform().apply(*mirrored); }), message + "lumPeriodicRepeatTransform");
  EXPECT_EQ(failureOf([&] { ReflectTransform().apply(*attributes.getTransform()); }),
            message + "lumSymmTransform");
}

TEST_F(ItemRules, ConvertWhatAHostAdds) {
  convert("");
  auto text = std::make_unique<Annotation>("made");
  text->setText("x");
  text->setMode(lum::CoordinateSpace::MODEL);
  text->setTextHeight(0.5);
  AssemblyItem group("A");
  group.add(std::move(text));
  group.add(std::make_unique<Gradient>("background"));
  SharedBySiblings shared;
  group.addToCollection(shared, collection(""), 1, "");
  const auto* const made = collection("A").find<lum::TextDrawable>("made");
  ASSERT_TRUE(made);
  EXPECT_EQ(made->findAttributes<lum::TextAttributes>()->getFontSize(), 0.5);
  EXPECT_EQ(collection("A").getNodeCount(), 1U) << "a gradient is not drawn";
  EXPECT_TRUE(logHas(takeLog(), "***** Gradient::addToCollection not implemented *****"));
}

TEST_F(ItemRules, MissWhatTheyNeed) {
  const std::string needsReader = "InternalError: SceneFileReadable can't be NULL for this object | reader";
  EXPECT_EQ(failureOf([] { Image2D("i").read(*elementOf("<image2d pixels='p'/>"), nullptr); }), needsReader);
  EXPECT_EQ(failureOf([] { GeometryItem("g").read(*elementOf("<geometry version='9'/>"), nullptr); }),
            needsReader);

  SharedBySiblings shared;
  shared.sceneNode = make<lum::SceneNode>();
  auto& collection = shared.sceneNode->getModelCanvas().getDrawableCollection();
  EXPECT_EQ(failureOf([&] { AxesItem("axes").addToCollection(shared, collection, 1, ""); }),
            "InternalError: Must be already set by Scene | modelCanvas.hasCameraAttributes()");
}

TEST_F(ItemRules, GiveAColormapNoArray) {
  const auto scalars = make<lum::ScalarAttributes>();
  Colormap("c").applyTo(*scalars);
  EXPECT_FALSE(scalars->hasDataArray());
}

}  // namespace

}  // namespace vemo
