#include "support/Databases.h"
#include "support/Expected.h"
#include "support/Files.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include "support/SmallStack.h"
#include "support/TemporaryFolder.h"
#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <vtkCellArray.h>
#include <vtkUnsignedCharArray.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

Ptr<Node> throughADatabase(Node& node) {
  const TemporaryFolder folder;
  EXPECT_EQ(writeDatabase(folder / "a.sdb", node), FileIoStatus::Success);
  const Ptr<Node> read = readDatabase(folder / "a.sdb");
  EXPECT_EQ(writeDatabase(folder / "b.sdb", *read), FileIoStatus::Success);
  EXPECT_TRUE(readFile(folder / "a.sdb") == readFile(folder / "b.sdb")) << "written again as other bytes";
  lum::SDBReader reader(wide(folder / "a.sdb"));
  for (std::size_t array = 0; array < reader.getArrays().size(); ++array) {
    EXPECT_NO_THROW(reader.checkArray(array));
  }
  return read;
}

struct Way {
  const char* name;
  Ptr<Node> (*carry)(Node&);
};

/// What a graph has to keep on every way that it can be saved or sent.
class RoundTripTest : public testing::TestWithParam<Way> {
 protected:
  static Ptr<Node> carry(Node& node) { return GetParam().carry(node); }
};

TEST_P(RoundTripTest, KeepsEveryFieldOfEveryClass) {
  for (const std::string& name : lum::getNodeClassNames()) {
    SCOPED_TRACE(name);
    const Ptr<Node> fresh = lum::createNode(lum::ClassNameNodeInitializer(name));
    const Ptr<Node> node = lum::createNode(lum::ClassNameNodeInitializer(name));
    EXPECT_EQ(node->className(), name);
    putUnusualValuesInto(*node);
    EXPECT_NE(firstDifference(*fresh, *node), "");
    EXPECT_EQ(firstDifference(*node, *carry(*node)), "");
  }
}

TEST_P(RoundTripTest, KeepsReferencesSharedArraysAndCells) {
  const auto scene = makeScene();
  const Ptr<lum::SceneNode> read(carry(*scene));
  EXPECT_EQ(firstDifference(*scene, *read), "");
  EXPECT_EQ(triadOf(*read).getCameraAttributes(), read->getModelCanvas().hasCameraAttributes());
  const auto piece = [&](const char* name) { return surfaceOf(*read).find<lum::PolyDataNode>(name); };
  EXPECT_EQ(piece("first")->getPoints(), piece("second")->getPoints());
  EXPECT_FALSE(piece("first")->getPolys()->IsStorage64Bit());
  EXPECT_TRUE(piece("wide")->getPolys()->IsStorage64Bit());
  EXPECT_NE(piece("empty")->getPoints(), nullptr);
  EXPECT_EQ(piece("none")->getPoints(), nullptr);
}

/// Larger than the blocks in which files are written and read.
TEST_P(RoundTripTest, KeepsLargeArrays) {
  constexpr std::size_t POINTS = 300'000;
  std::vector<std::array<float, 3>> points(POINTS);
  std::vector<unsigned char> values(POINTS);
  for (std::size_t i = 0; i < POINTS; ++i) {
    points[i] = {static_cast<float>(i), 0.5F, -static_cast<float>(i)};
    values[i] = static_cast<unsigned char>(i / 1000);
  }
  const auto node = make<lum::PolyDataNode>();
  node->setPolyData(makePolyData(points, {}));
  node->setNodeDataArray(makeArray<vtkUnsignedCharArray>("values", values));
  EXPECT_EQ(firstDifference(*node, *carry(*node)), "");
}

TEST_P(RoundTripTest, GoesToTheGreatestDepthOnASmallStack) {
  runOnSmallStack([] {
    const Ptr<Node> deepest = makeChain(Node::MAX_DEPTH);
    EXPECT_EQ(firstDifference(*deepest, *carry(*deepest)), "");
  });
}

INSTANTIATE_TEST_SUITE_P(Ways, RoundTripTest,
                         testing::Values(Way{"Database", &throughADatabase},
                                         Way{"Streams", [](Node& node) { return throughStreams(node); }}),
                         [](const auto& way) { return std::string(way.param.name); });

/// The files are as programs of these versions wrote them, and stay so: scenes
/// that people have kept are read by every later version. The last one is written
/// the same way, too, its arrays on boundaries of 64 bytes.
TEST(VersionsTest, AreReadAndTheLastIsWritten) {
  const TemporaryFolder folder;
  for (const char* const file : {"version-1.sdb", "version-2.sdb"}) {
    SCOPED_TRACE(file);
    const Ptr<Node> read = readDatabase(testData(file));
    expectGraph(*read, "version-1.json");
    ASSERT_EQ(writeDatabase(folder / "a.sdb", *read), FileIoStatus::Success);
    EXPECT_TRUE(readFile(folder / "a.sdb") == readFile(testData("version-2.sdb")));
  }
}

}  // namespace

}  // namespace vemo
