// What holds for items of every kind: versions, names, visibility, commands.

#include "SceneFixture.h"

#include <gmock/gmock.h>
#include <map>
#include <string>
#include <utility>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

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
  EXPECT_EQ(failureOf([&] { read(assembly("A", geometry("version='2'"))); }),
            "FutureVersionException:  | scene/A/g:1:");
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

TEST_F(ItemRules, WhatTheOldSceneHidesStaysHidden) {
  convert(assembly("shown", geometry("polys='tri'")) +
          assembly("hidden", geometry("name='h' polys='tri' visibility='0.001'") + geometry("polys='tri'"),
                   "visibility='0'"));
  EXPECT_TRUE(collection("shown").getBaseAttributes().getVisibility());
  EXPECT_TRUE(drawable<lum::SurfaceDrawable>("shown/g").getBaseAttributes().getVisibility());
  EXPECT_FALSE(collection("hidden").getBaseAttributes().getVisibility());
  EXPECT_FALSE(drawable<lum::SurfaceDrawable>("hidden/h").getBaseAttributes().getVisibility());
  EXPECT_TRUE(drawable<lum::SurfaceDrawable>("hidden/g").getBaseAttributes().getVisibility())
      << "an assembly hides its children without changing them";
}

TEST_F(ItemRules, HideNoItemWithAnotherOfItsName) {
  const std::string shown = geometry("polys='tri'"), hidden = geometry("polys='tri' visibility='0'");
  for (const auto& [items, firstIsShown] : {std::pair{shown + hidden + shown + hidden, true},
                                            std::pair{hidden + shown + hidden + shown, false}}) {
    convert(assembly("A", items));
    auto& drawables = collection("A/g");
    ASSERT_EQ(drawables.getNodeCount(), 2U);
    for (const std::size_t i : {0U, 1U}) {
      auto& drawable = dynamic_cast<lum::SurfaceDrawable&>(drawables.getNode(i));
      EXPECT_EQ(drawable.getBaseAttributes().getVisibility(), firstIsShown == (i == 0));
      EXPECT_TRUE(drawable.find<lum::PolyDataNode>("PolyDataNode2"));
    }
  }
}

TEST_F(ItemRules, KnowAllKindsAndPassOverOthers) {
  const auto scene = read(
      "<colormap name='c'/><legend/><transform/><repeat/><reflect/><axes textColor='00000000'/>"
      "<coordinatesystem textColor='00000000'/><image2d name='i'/><image3d/><vectors version='x'/>"
      "<streamlines version='9'/><Assembly/><unknown><geometry/></unknown><assembly/>" +
      geometry(""));
  std::vector<std::string> kinds;
  for (const auto& child : scene->getChildren()) {
    kinds.emplace_back(child->isAssembly() ? "assembly" : child->getName());
  }
  EXPECT_THAT(kinds, ElementsAre("", "", "i", "", "assembly", "g"));
  EXPECT_NE(scene->getActiveColormap(), nullptr);
  EXPECT_THAT(warnings(), ElementsAre("Items of the kind \"vectors\" are not shown",
                                      "Items of the kind \"streamlines\" are not shown"));
  EXPECT_EQ(_reader->getWarnings().front().itemPath, "scene/vectors");
}

TEST_F(ItemRules, PicturesAndLegendsNeverStopAScene) {
  convert(assembly("A",
                   "<legend version='one' visibility='?'/><image2d version='' visibility='-'/>"
                   "<image3d version='1.0' name=''><font facename='?'/></image3d>" +
                       geometry("polys='tri'")));
  EXPECT_THAT(warnings(), ElementsAre(HasSubstr("\"one\" is not a number"), HasSubstr("\"1.0\"")));
  EXPECT_TRUE(collection("A/g").find<lum::SurfaceDrawable>());
  EXPECT_EQ(collection("A").getNodeCount(), 1U);
}

TEST_F(ItemRules, FailuresNameTheItemThatWasRead) {
  const std::string misread = "<geometry name='wing' visibility='1' lineColor='red'/>";
  EXPECT_EQ(failureOf([&] { read(assembly("A", "\n" + geometry("name='long' lines='absent'"))); }),
            "IOException: Bad size for integer buffer;  not a multiple of 4 | scene/A/long:2:absent");
  EXPECT_EQ(failureOf([&] { read("<light intensity='1' color='gg0000ff'/>"); }),
            "NumberFormatException: gg | scene/light:1:");
  EXPECT_EQ(failureOf([&] { read(assembly("", misread)); }),
            "InternalError: Can't extract color from such a short string | colorStr.length() >= 8");
  try {
    read(assembly("", misread));
    FAIL();
  } catch (const InternalError& error) {
    EXPECT_EQ(error.getProperties().get("itemPath"), "scene/assembly/wing");
  }
}

}  // namespace

}  // namespace vemo
