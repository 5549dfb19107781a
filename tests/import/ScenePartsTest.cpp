#include "SceneFixture.h"
#include "support/Databases.h"
#include "support/Files.h"
#include "support/FoundFindings.h"
#include "support/GraphText.h"
#include "support/SampleGraphs.h"
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneParts.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/io/FileError.h>

#include <gmock/gmock.h>
#include <set>

namespace vemo {

namespace {

/// Four parts: two that share a drawable, whose settings are the second's, one in another assembly
/// that shares points, and lines.
class ScenePartsTest : public SceneFixture {
 protected:
  ScenePartsTest() {
    const std::string heat = "<array name='heat' dim='1' data='four' vertexData='true'/>";
    write(sceneXml(assembly("A", geometry("polys='quad' lineWidth='1'", heat) +
                                     geometry("polys='tri' lineWidth='7'", heat)) +
                   assembly("B", geometry("strips='strip'") + geometry("name='l' lines='line'", heat))));
    SceneConverter(archivePath(), wide(database())).run();
  }

  std::filesystem::path database() const { return _folder / "scene.sdb"; }

  std::vector<std::wstring> files() const { return {archivePath(), wide(database())}; }

  SceneParts _parts;

  /// The scene with the parts of these numbers.
  OpenedScene open(const std::wstring& path, const std::set<std::size_t>& wanted) {
    return openSceneParts(
        path, [&](std::size_t part) { return wanted.contains(part); }, _parts);
  }

  std::uint64_t bytesOf(std::size_t part) const {
    std::uint64_t bytes = 0;
    for (const std::size_t array : _parts.parts.at(part).arrays) {
      bytes += _parts.arrayBytes.at(array);
    }
    return bytes;
  }
};

/// The graph without the content of its geometry.
std::string settingsText(const OpenedScene& scene) {
  lum::Node& graph = *scene.records.front().node;
  const vtkNew<vtkPolyData> nothing;
  lum::forEachNodeOf<lum::PolyDataNode>(graph, [&](lum::PolyDataNode& node) {
    node.setPolyData(nothing);
    node.setAttachmentPoint({}, 0);
  });
  return graphText(graph);
}

bool isRead(const SceneParts::Part& part) {
  return part.node->getPoints() != nullptr;
}

TEST_F(ScenePartsTest, ReadsWhatIsWantedIntoTheNodesOfTheWholeScene) {
  for (const std::wstring& path : files()) {
    const OpenedScene whole = openScene(path);
    EXPECT_EQ(graphText(*open(path, {0, 1, 2, 3}).records.front().node),
              graphText(*whole.records.front().node));
    ASSERT_EQ(_parts.parts.size(), 4U);
    std::vector<lum::Ptr<lum::PolyDataNode>> nodes;
    std::ranges::transform(_parts.parts, std::back_inserter(nodes), &SceneParts::Part::node);
    const std::string settings = settingsText(whole);
    for (std::size_t wanted = 0; wanted < 4; ++wanted) {
      const OpenedScene scene = open(path, {wanted});
      for (std::size_t part = 0; part < 4; ++part) {
        EXPECT_EQ(isRead(_parts.parts[part]), part == wanted);
      }
      EXPECT_EQ(lum::firstDifference(*_parts.parts[wanted].node, *nodes[wanted]), "") << wanted;
      EXPECT_EQ(settingsText(scene), settings) << wanted;
    }
  }
}

TEST_F(ScenePartsTest, TellsSizesAndSharedArraysBeforehand) {
  open(archivePath(), {});
  // Points, two triangles, heat.
  EXPECT_EQ(bytesOf(0), 48 + 32 + 16);
  EXPECT_EQ(bytesOf(2), 48 + 20);
  EXPECT_THAT(_parts.parts[0].arrays, testing::Contains(_parts.parts[2].arrays.front()));
  open(wide(database()), {});
  EXPECT_GT(bytesOf(0), bytesOf(2));
  EXPECT_THAT(_parts.parts[2].arrays, testing::Contains(_parts.parts[0].arrays.front()));
}

TEST_F(ScenePartsTest, DamageIsNoticedOnlyInWhatIsWanted) {
  _archive.bytes("bad", {1, 2, 3});
  write(sceneXml(geometry("name='a' polys='quad'") + geometry("name='b' points='bad'")));
  open(archivePath(), {0});
  EXPECT_TRUE(isRead(_parts.parts[0]));
  EXPECT_THROW(open(archivePath(), {1}), Exception);

  std::string bytes = readFile(database());
  open(wide(database()), {});
  lum::SDBReader reader(wide(database()));
  const auto lines = _parts.parts[3].arrays;
  for (const std::size_t array : lines) {
    if (std::ranges::none_of(_parts.parts[0].arrays, [&](std::size_t other) { return other == array; })) {
      bytes[reader.getArrays()[array].offset] ^= 1;
    }
  }
  writeFile(_folder / "damaged.sdb", bytes);
  open(wide(_folder / "damaged.sdb"), {0, 1, 2});
  EXPECT_TRUE(isRead(_parts.parts[0]));
  EXPECT_THROW(open(wide(_folder / "damaged.sdb"), {3}), lum::io::FileError);
}

TEST_F(ScenePartsTest, UnreadEntriesAreNoFindings) {
  const auto codesOf = [](auto&& open) {
    const FoundFindings found;
    open();
    return found.codes();
  };
  const auto whole = codesOf([this] { openScene(archivePath()); });
  EXPECT_THAT(whole, testing::Contains("entry-unused"));
  EXPECT_EQ(codesOf([this] { open(archivePath(), {}); }), whole);
}

// A scene graph in the archive has parts of its own.
TEST_F(ScenePartsTest, KeepsPartsOfAPayload) {
  const lum::Ptr<lum::SceneNode> scene = makeScene();
  lum::NodeOutputStream stream;
  scene->write(stream);
  const Payload payload(stream);
  _archive.text("scene.lum", payload.scene);
  for (std::size_t i = 0; i < payload.data.size(); ++i) {
    _archive.text("lum" + std::to_string(i), payload.data[i]);
  }
  write(sceneXml(geometry("polys='quad'")));
  open(archivePath(), {1});
  ASSERT_GE(_parts.parts.size(), 2U);
  EXPECT_FALSE(isRead(_parts.parts[0]));
  EXPECT_TRUE(isRead(_parts.parts[1]));
  EXPECT_GT(bytesOf(0), 0U);
}

}  // namespace

}  // namespace vemo
