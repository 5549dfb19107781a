#include "SceneFixture.h"
#include "scenegraph/io/bytes/ByteWriter.h"
#include "support/Databases.h"
#include "support/Expected.h"
#include "support/Files.h"
#include "support/FoundFindings.h"
#include "support/GraphText.h"
#include "support/Nodes.h"
#include <vemo/import/Exception.h>
#include <vemo/import/OpenScene.h>
#include <vemo/import/SceneAudit.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>
#include <vemo/scenegraph/io/NodeOutputStream.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <vtkPolyData.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

using namespace std::string_literals;

class SceneConverterTest : public SceneFixture {
 protected:
  std::filesystem::path output() const { return _folder / "scene.sdb"; }

  /// Converts the archive; gives what the output holds.
  lum::SceneNode& run(const std::string& xml) {
    write(xml);
    SceneConverter(archivePath(), wide(output())).run();
    lum::SDBReader reader(wide(output()));
    _sceneNode = lum::Ptr<lum::SceneNode>(reader.readNode(0));
    return *_sceneNode;
  }

  /// Puts a scene graph into the archive: "scene.lum" and "lum0", "lum1", ...
  void addPayload(const std::vector<const lum::Node*>& roots, std::size_t withoutArrays = 0) {
    lum::NodeOutputStream stream;
    for (const lum::Node* root : roots) {
      root->write(stream);
    }
    const Payload payload(stream);
    _archive.text("scene.lum", payload.scene);
    for (std::size_t i = withoutArrays; i < payload.data.size(); ++i) {
      _archive.text("lum" + std::to_string(i), payload.data[i]);
    }
  }

  /// The findings about the archive, as "code: text | entry".
  std::vector<std::string> audited() const {
    const SceneAudit audit(archivePath());
    std::vector<std::string> findings;
    for (const Finding& finding : audit.getFindings()) {
      findings.push_back(finding.getKind().name + ": " + finding.text + " | " + finding.entry);
    }
    return findings;
  }

  static int openSessions() {
    int open = 0;
    auto& sessions = lum::NodeRegistrySessions::getSingleton();
    for (int id = 0; id < 10000; ++id) {
      open += sessions.hasSession(id) ? 1 : 0;
    }
    return open;
  }
};

TEST_F(SceneConverterTest, WritesOneRecordWithTheConvertedScene) {
  auto& node = run(sceneXml(assembly("A", geometry("polys='quad'")), "name='a scene' background='ff800040'"));
  EXPECT_EQ(lum::SDBReader(wide(output())).getRecords().size(), 1U);
  expectAsInFile(graphText(node), "converted-scene.txt");
  expectAsInFile(graphText(*openScene(archivePath()).records.at(0).node), "converted-scene.txt");
}

TEST_F(SceneConverterTest, LeavesTheOutputAloneWhenTheVerifierRefuses) {
  run(sceneXml("", "name='former'"));
  write(sceneXml("", "name='new'"));
  SceneConverter converter(archivePath(), wide(output()));
  converter.setVerifier([](lum::SceneNode& written, const std::wstring& file) {
    EXPECT_EQ(firstDifference(written, *readDatabase(file)), "");
    throw IOException("refused");
  });
  EXPECT_THROW(converter.run(), IOException);
  EXPECT_EQ(lum::SDBReader(wide(output())).readNode(0)->getName(), "former");
}

TEST_F(SceneConverterTest, LogsWhatItDoes) {
  run(sceneXml("", "name='s'"));
  const auto log = takeLog();
  const std::string out = output().string();
  EXPECT_THAT(
      log, testing::IsSupersetOf({"Reading a file\n\t" + (_folder / "scene.zip").string() +
                                      ", converting it, and writing to\n\t" + out,
                                  std::string("SceneFileReader::read: 9 entries found inside"),
                                  std::string("\nThe scene has been read\nParsing..."),
                                  std::string("\n\tparsing old, XML-based, format"),
                                  std::string("sceneNode with name \"s\" is here!"), std::string("done")}));
}

TEST_F(SceneConverterTest, PassesASceneGraphThrough) {
  convert(assembly("A", geometry("polys='quad'")));
  _sceneNode->setName("carried");
  addPayload({_sceneNode.get()});
  const int sessions = openSessions();
  auto& node = run(sceneXml("", "name='ignored'"));
  EXPECT_EQ(node.getName(), "carried");
  EXPECT_EQ(
      drawable<lum::SurfaceDrawable>("A/g").find<lum::PolyDataNode>()->getPolyData()->GetNumberOfPolys(), 2);
  EXPECT_FALSE(node.hasBackgroundCanvas()) << "canvases stay as they were carried";
  EXPECT_EQ(graphText(*openScene(archivePath()).records.at(0).node), graphText(node));
  EXPECT_EQ(openSessions(), sessions);
  EXPECT_TRUE(logHas(takeLog(), "\n\tparcing new, lum-based, format"));
}

TEST_F(SceneConverterTest, NeedsNothingThatASceneGraphReplaces) {
  convert(geometry("polys='quad'"));
  addPayload({_sceneNode.get()});
  const std::string missingArray = "<array name='a' dim='9' data='four'/>";
  write(sceneXml(geometry("polys='quad' lineWidth='q'", missingArray)));
  for (const LedgerRow& row : rowsOf(archivePath())) {
    const bool isUsed = row.entry == "scene.lum" || row.entry.starts_with("lum");
    const bool isRead = row.findings.empty() || row.entry == "scene.xml";
    EXPECT_EQ(row.outcome, isUsed   ? Outcome::KEPT
                           : isRead ? Outcome::UNUSED
                                    : Outcome::LOST)
        << row.path << row.entry << row.attribute;
  }
  auto findings = audited();
  std::erase_if(findings, [](const std::string& finding) { return finding.starts_with("entry-unused"); });
  EXPECT_THAT(findings,
              testing::ElementsAre("description-replaced: The archive holds a scene graph, which is "
                                   "used instead of the items of the description | scene.xml"));
}

TEST_F(SceneConverterTest, IgnoresDataThatDoesNotDecode) {
  convert(geometry("polys='quad'"));
  addPayload({_sceneNode.get()});
  _archive.text("lum_x", "no data").text("lum_y", "").text("Lum", "is none");
  run(sceneXml(""));
  EXPECT_EQ(std::ranges::count(takeLog(), "Error parsing data input stream!"), 2);
  EXPECT_THAT(audited(), testing::IsSupersetOf({"stream-invalid: Not a data stream | lum_x"s,
                                                "stream-invalid: Not a data stream | lum_y"s}));
  EXPECT_EQ(drawable<lum::SurfaceDrawable>("g").find<lum::PolyDataNode>()->getPolyData()->GetNumberOfPolys(),
            2);
}

/// An audit goes on with what was read before.
TEST_F(SceneConverterTest, AuditsASceneGraphOfWhichAnEntryCannotBeRead) {
  convert(geometry("polys='quad'"));
  addPayload({_sceneNode.get()});
  _archive.text("lum_x", "no data").forge([](ArchiveBuilder::Entry& entry) { entry.flags |= 1; });
  _archive.text("lum_y", "no data");
  write(sceneXml(""));
  EXPECT_THAT(audited(), testing::Contains(testing::EndsWith(" | lum_x")));
}

TEST_F(SceneConverterTest, ReportsArraysOfASceneGraphThatAreMissing) {
  convert(geometry("polys='quad'"));
  addPayload({_sceneNode.get()}, 1);
  _archive.text("lum_x", "no data");
  const FoundFindings found;
  run(sceneXml(""));
  EXPECT_EQ(std::ranges::count(found.codes(), "stream-invalid"), 1);
  EXPECT_EQ(std::ranges::count(found.codes(), "payload-damaged"), 1) << "which is another one";
}

TEST_F(SceneConverterTest, ReportsWhatIsInASceneGraphBesideTheScene) {
  convert(geometry("polys='quad'"));
  const Ptr<lum::SceneNode> scene(_sceneNode);
  convert(geometry("polys='quad'"));
  addPayload({scene.get(), &_sceneNode->getModelCanvas().getDrawableCollection()});
  write(sceneXml(""));
  EXPECT_THAT(audited(), testing::Contains(
                             "payload-unused: 1 of the graphs in the archive are not part of its scene | "));
}

/// Zeros for nodes, which deflate to next to nothing.
TEST_F(SceneConverterTest, RefusesASceneGraphOfMoreNodesThanItemsMayBe) {
  constexpr std::size_t COUNT = 500'001;
  lum::io::ByteWriter graph;
  graph.number(COUNT);
  graph.fill(1 + 8 * COUNT);
  lum::io::ByteWriter message;
  message.fill(4);  // tables
  message.text(graph.view());
  lum::io::ByteWriter stream;
  stream.bytes("LUMSCN2\n", 8);
  stream.raw(std::uint64_t{message.size()});
  stream.raw(hashOfPart(message.view().data(), message.size()));
  stream.bytes(message.view().data(), message.size());
  _archive.text("scene.lum", stream.view());
  write(sceneXml(""));
  EXPECT_THAT(audited().back(), testing::EndsWith(" nodes is out of proportion to the file | scene.lum"));
}

TEST_F(SceneConverterTest, NeedsExactlyOneSceneNode) {
  const std::string failure = "InternalError: Can not get a SceneNode from the scene | sceneNode";
  const int sessions = openSessions();
  const auto one = make<lum::SceneNode>("one");
  const auto two = make<lum::SceneNode>("two");
  addPayload({one.get(), two.get()});
  EXPECT_EQ(failureOf([&] { run(sceneXml("")); }), failure);
  const std::string refusal = "item-invalid: Can not get a SceneNode from the scene: ";
  EXPECT_EQ(audited().back(), refusal + "The scene graph has 2 scene nodes | scene.lum");
  _archive = ArchiveBuilder().text("scene.lum", "{}").text("lum", "x");
  takeLog();
  EXPECT_EQ(failureOf([&] { run(sceneXml("")); }), failure);
  EXPECT_FALSE(logHas(takeLog(), "Error parsing data input stream!")) << "data is skipped";
  EXPECT_EQ(audited().back(), refusal + "Not a scene stream | scene.lum");
  EXPECT_EQ(openSessions(), sessions);
  EXPECT_FALSE(std::filesystem::exists(output()));
}

TEST_F(SceneConverterTest, IgnoresAnEmptySceneGraph) {
  _archive.text("scene.lum", "");
  EXPECT_EQ(run(sceneXml("", "name='old'")).getName(), "old");
}

TEST_F(SceneConverterTest, ReleasesThePayloadWhenReadingItFails) {
  _archive.text("scene.lum", "x").text("lum1", "x").text("lum2", "x").forge([](ArchiveBuilder::Entry& entry) {
    entry.method = 0xffff;
  });
  EXPECT_EQ(failureOf([&] { run(sceneXml("")); }),
            "IOException: Could not completely read entry 'lum2'<br>Your file may be corrupt. | ::lum2");
}

TEST_F(SceneConverterTest, LeavesOutArraysThatADatabaseCannotHold) {
  std::string arrays;
  for (int i = 0; i < 5000; ++i) {
    arrays += "<array name='a" + std::to_string(i) + "' dim='1' vertexData='true' data='four'/>";
  }
  const FoundFindings found;
  run(sceneXml(geometry("polys='quad'", arrays)));
  EXPECT_EQ(drawable<lum::SurfaceDrawable>("g").find<lum::PolyDataNode>()->getNodeDataArrays().size(), 4096U)
      << "with normals";
  EXPECT_THAT(found.codes(), testing::Contains("array-left-out"));
}

TEST_F(SceneConverterTest, AnOutputThatDoesNotOpenIsOnlyLogged) {
  const auto sceneNode = make<lum::SceneNode>("carried");
  addPayload({sceneNode.get()});
  write(sceneXml(""));
  const int sessions = openSessions();
  SceneConverter converter(archivePath(), wide(_folder / "absent/scene.sdb"));
  std::string observed;
  converter.setWriteFailureObserver([&observed](const std::string& cause) { observed = cause; });
  converter.run();
  EXPECT_EQ(observed,
            "Cannot write " + (_folder / "absent/scene.sdb").string() + ": No such file or directory");
  const auto log = takeLog();
  EXPECT_TRUE(logHas(log, "Can't open file for writing"));
  EXPECT_FALSE(logHas(log, "done"));
  EXPECT_EQ(openSessions(), sessions + 1);
  // Of the session that is still open.
  const auto nodes = [](int id) {
    return lum::NodeRegistrySessions::getSingleton().hasSession(id)
               ? lum::NodeRegistry::getSingleton(id).getNodes("SceneNode").size()
               : 0;
  };
  for (int id = 0; id < 10000; ++id) {
    EXPECT_EQ(nodes(id), 0U) << id;
  }
}

}  // namespace

}  // namespace vemo
