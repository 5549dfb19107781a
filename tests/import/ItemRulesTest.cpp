// What holds for items of every kind: versions, names, visibility, commands.

#include "SceneFixture.h"
#include "vemoview/import/AxesItem.h"
#include "vemoview/import/ClippingPlane.h"
#include "vemoview/import/Colormap.h"
#include "vemoview/import/CoordinateSystemItem.h"
#include "vemoview/import/Font.h"
#include "vemoview/import/Gradient.h"
#include "vemoview/import/Image2D.h"
#include "vemoview/import/Legend.h"
#include "vemoview/import/Light.h"
#include "vemoview/import/ReflectTransform.h"
#include "vemoview/import/RepeatTransform.h"
#include "vemoview/import/Streamlines.h"

#include <gmock/gmock.h>
#include <map>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ItemRules : public SceneFixture {};

template <class T>
void readFrom(const std::string& xml) {
  if constexpr (std::is_default_constructible_v<T>) {
    T().read(*elementOf(xml), nullptr);
  } else {
    T("made").read(*elementOf(xml), nullptr);
  }
}

TEST_F(ItemRules, RefuseVersionsOfTheFuture) {
  const std::string colors =
      "' color='ffffffff' textColor='ffffffff' topColor='ffffffff' bottomColor='ffffffff";
  const struct {
    const char* kind;
    void (*read)(const std::string&);
    int newest;
  } kinds[] = {{"assembly", readFrom<AssemblyItem>, 1},
               {"colormap", readFrom<Colormap>, 1},
               {"legend", readFrom<Legend>, 1},
               {"transform", readFrom<GeometryTransform>, 1},
               {"repeat", readFrom<RepeatTransform>, 1},
               {"reflect", readFrom<ReflectTransform>, 2},
               {"axes", readFrom<AxesItem>, 1},
               {"coordinatesystem", readFrom<CoordinateSystemItem>, 1},
               {"image2d", readFrom<Image2D>, 1},
               {"font", readFrom<Font>, 1},
               {"light", readFrom<Light>, 1},
               {"clip", readFrom<ClippingPlane>, 1},
               {"view", readFrom<Scene::View>, 1},
               {"gradient", readFrom<Gradient>, 1}};
  for (const auto& [kind, read, newest] : kinds) {
    const auto withVersion = [&](const std::string& version) {
      const std::string xml = std::string("<") + kind + " version='" + version + colors + "'/>";
      return failureOf([&] { read(xml); });
    };
    EXPECT_EQ(withVersion("0"), "") << kind;
    EXPECT_EQ(withVersion(std::to_string(newest)), "") << kind;
    EXPECT_EQ(withVersion(std::to_string(newest + 1)), "FutureVersionException:  | ::") << kind;
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
