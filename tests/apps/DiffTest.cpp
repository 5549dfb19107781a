#include "ProgramRun.h"
#include "support/Files.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include <vemo/scenegraph/io/SDBWriter.h>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace vemo {

namespace {

using nlohmann::json;

struct NamedScene {
  const char* title;
  lum::Ptr<lum::SceneNode> scene;
};

lum::Ptr<lum::SceneNode> makeNamedScene(const char* name) {
  auto scene = makeScene();
  scene->setName(name);
  return scene;
}

class DiffTest : public ProgramTest {
 protected:
  void write(const char* file, const std::vector<NamedScene>& scenes) const {
    lum::SDBWriter writer;
    EXPECT_TRUE(isSuccess(writer.open(wide(_folder / file), false, false)));
    for (const NamedScene& each : scenes) {
      int number = -1;
      EXPECT_TRUE(isSuccess(writer.addRecord(each.title, "", "", *each.scene, number)));
    }
    EXPECT_TRUE(isSuccess(writer.close()));
  }
};

TEST_F(DiffTest, PrintsWhatDiffers) {
  const auto scene = makeScene();
  auto& piece = *surfaceOf(*scene).find<lum::PolyDataNode>("first");
  piece.setNodeDataArray(makeArray("heat", {1, NAN, 2}));
  write("a.sdb", {{"", scene}});
  piece.setNodeDataArray(makeArray("heat", {1.5, 0.5, 2}));
  surfaceOf(*scene).getColorAttributes()->setOpacity(0.96875, false);
  surfaceOf(*scene).getColorAttributes()->setColor("a\nb", {0, 0, 0});
  write("b.sdb", {{"", scene}});

  const ProgramResult text = run({"diff", "a.sdb", "b.sdb"});
  const std::string surface = "ModelCanvas/DrawableCollection/surface/";
  EXPECT_EQ(text.exitCode, 1);
  EXPECT_EQ(text.out,
            surface + "AttributesCollection/ColorAttributes: colors[\"a b\"]: none against (0, 0, 0)\n" +
                surface + "AttributesCollection/ColorAttributes: opacity: 1 against 0.96875\n" + surface +
                "first: nodeDataArrays[\"heat\"]: nan against 0.5 (2 of 3 differ, most at 1, by inf)\n"
                "3 differences in 1 record, 16 nodes and 20 arrays\n");
  EXPECT_EQ(text.err, "");
  const ProgramResult tolerant = run({"diff", "a.sdb", "b.sdb", "--json", "--tolerance", "0.34"});
  EXPECT_EQ(tolerant.exitCode, 1);
  const json list = json::parse(tolerant.out);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0]["a"], nullptr);
  EXPECT_EQ(list[0]["b"], (json{0, 0, 0}));
  EXPECT_EQ(list[1], (json{{"record", 0},
                           {"path", surface + "first"},
                           {"what", "nodeDataArrays[\"heat\"]"},
                           {"a", "nan"},
                           {"b", 0.5},
                           {"count", 1},
                           {"of", 3},
                           {"index", 1},
                           {"deviation", nullptr}}));
  const ProgramResult equal = run({"diff", "a.sdb", "a.sdb", "--json"});
  EXPECT_EQ(equal.exitCode, 0);
  EXPECT_EQ(json::parse(equal.out), json::array());
}

TEST_F(DiffTest, LimitsTheLinesOfTextOnly) {
  const auto scene = makeScene();
  write("a.sdb", {{"", scene}});
  for (int i = 0; i < 1234; ++i) {
    surfaceOf(*scene).addNode(*make<lum::PolyDataNode>());
  }
  write("b.sdb", {{"", scene}});
  const std::string text = run({"diff", "b.sdb", "a.sdb"}).out;
  EXPECT_EQ(std::ranges::count(text, '\n'), 102);
  EXPECT_THAT(text, testing::HasSubstr("\n... and 1,134 more\n1,234 differences in "));
  EXPECT_EQ(json::parse(run({"diff", "b.sdb", "a.sdb", "--json"}).out).size(), 1234U);
}

TEST_F(DiffTest, ComparesRecordsOfOneTitleAndThenTheRest) {
  write("a.sdb", {{"x", makeNamedScene("1")}, {"y", makeNamedScene("2")}, {"x", makeNamedScene("3")}});
  write("b.sdb", {{"new", makeNamedScene("4")},
                  {"x", makeNamedScene("1")},
                  {"x", makeNamedScene("5")},
                  {"more", makeNamedScene("6")}});
  EXPECT_THAT(run({"diff", "a.sdb", "b.sdb"}).out,
              testing::StartsWith("record 1: /: title: y against new\n"
                                  "record 1: /: name: 2 against 4\n"
                                  "record 2: /: name: 3 against 5\n"
                                  "record 3: /: record: none against more\n"
                                  "4 differences in 3 records, "));
}

}  // namespace

}  // namespace vemo
