#include "support/Nodes.h"
#include <vemo/scenegraph/attributes/TextAttributes.h>
#include <vemo/scenegraph/canvas/CameraAttributes.h>
#include <vemo/scenegraph/coloring/ColorAttributes.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/inspect/FieldText.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

using lum::describeFields;

TEST(FieldTextTest, NamesEnumeratorsAndPrintsColorsAsHexDigits) {
  const auto colors = make<lum::ColorAttributes>();
  EXPECT_EQ(describeFields(*colors), "colorMode plain, opacity 1");
  colors->setColorMode(lum::ColorMode::KEYED);
  colors->setColor({1.0, 0.5, 0.0}, false);
  colors->setColor("a\n\x1b", {2.0, 0.0, 0.0});
  EXPECT_EQ(describeFields(*colors),
            "colorMode by key, color #ff8000, colors (\"a\n\xEF\xBF\xBD\" (2, 0, 0)), opacity 1");
  colors->setColorMode(static_cast<lum::ColorMode>(7));
  EXPECT_THAT(describeFields(*colors), testing::StartsWith("colorMode 7,"));
}

TEST(FieldTextTest, ShortensLongListsAndLeavesOutWhatIsNotSet) {
  const auto table = make<lum::ColorLookupTable>();
  table->setColorValues(std::vector<double>(4));
  EXPECT_THAT(describeFields(*table), testing::StartsWith("colorValues (0, 0, 0, 0), numColor 0, "));
  table->setColorValues(std::vector<double>(1234));
  EXPECT_THAT(describeFields(*table), testing::StartsWith("colorValues 1,234 numbers, "));
  const auto colors = make<lum::ColorAttributes>();
  for (const char* key : {"a", "b", "c", "d", "e", "f"}) {
    colors->setColor(key, {});
  }
  EXPECT_THAT(describeFields(*colors), testing::HasSubstr("\"d\" #000000, 2 more)"));
  EXPECT_THAT(describeFields(*make<lum::CameraAttributes>()),
              testing::EndsWith("projectionMode perspective"));
  EXPECT_THAT(describeFields(*make<lum::TextAttributes>()),
              testing::HasSubstr("fontFamilyName \"Arial\", fontStyle 0, foregroundColor #000000ff"));
}

}  // namespace

}  // namespace vemo
