#include "ProgramRun.h"
#include "support/Expected.h"
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

  expectAsInFile(answerTo("$ diff a.sdb b.sdb") + answerTo("$ diff a.sdb b.sdb --json --tolerance 0.34") +
                     answerTo("$ diff a.sdb a.sdb --json"),
                 "diff-of-values.txt");
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
  expectAsInFile(answerTo("$ diff a.sdb b.sdb"), "diff-of-records.txt");
}

}  // namespace

}  // namespace vemo
