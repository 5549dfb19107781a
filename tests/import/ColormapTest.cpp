#include "SceneFixture.h"
#include <vemo/import/items/Colormap.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

lum::Ptr<lum::ScalarAttributes> applied(const std::string& xml, bool withArray = true) {
  lum::Ptr<lum::ScalarAttributes> scalars(
      new lum::ScalarAttributes(lum::ClassNameNodeInitializer(lum::ScalarAttributes::getClassName())));
  if (withArray) {
    scalars->getDataArray();
  }
  Colormap colormap;
  colormap.read(*elementOf(xml), nullptr);
  colormap.applyTo(*scalars);
  return scalars;
}

TEST(ColormapTest, TakesEveryChildForAColor) {
  const auto scalars = applied("<colormap><color>ff0000ff</color><any>0000FF80</any></colormap>");
  EXPECT_THAT(scalars->getColorLookupTable().getColorValues(), ElementsAre(1, 0, 0, 1, 0, 0, 1, 128 / 255.0));
}

TEST(ColormapTest, WithoutAnythingStatedIsEmptyAndLinear) {
  const auto scalars = applied("<colormap/>", false);
  const auto& table = scalars->getColorLookupTable();
  EXPECT_THAT(table.getColorValues(), IsEmpty());
  EXPECT_EQ(table.getNumColor(), 0);
  EXPECT_EQ(table.getScalarRange(), (Vector<2, double>{}));
  EXPECT_EQ(table.getScaleMode(), lum::ScaleMode{0});
  EXPECT_FALSE(scalars->hasDataArray());
}

TEST(ColormapTest, KnowsItsRamps) {
  const std::pair<const char*, int> ramps[] = {
      {"linear", 0}, {"scurve", 1}, {"sqrt", 2}, {"SQRT", 0}, {"", 0}};
  for (const auto& [ramp, code] : ramps) {
    const auto scalars = applied(std::string("<colormap ramp='") + ramp + "'/>");
    EXPECT_EQ(static_cast<int>(scalars->getColorLookupTable().getRampMode()), code) << ramp;
  }
}

TEST(ColormapTest, RefusesColorsThatAreNone) {
  EXPECT_EQ(failureOf([] { applied("<colormap><color>ff00</color></colormap>"); }),
            "InternalError: Can't extract color from such a short string | colorStr.length() >= 8");
  EXPECT_EQ(failureOf([] { applied("<colormap><color>ff00zz00</color></colormap>"); }),
            "NumberFormatException: zz | ::");
}

}  // namespace

}  // namespace vemo
