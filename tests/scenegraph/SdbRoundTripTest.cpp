#include "SampleGraphs.h"
#include "SdbFile.h"
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/inspect/Compare.h>
#include <vemo/scenegraph/io/CheckFormat.h>
#include <vemo/scenegraph/io/FileError.h>

#include <vtkUnsignedShortArray.h>

#include <gmock/gmock.h>
#include <pthread.h>
#include <sstream>

namespace vemo {

namespace {

using lum::firstDifference;
using lum::Node;
using lum::Ptr;
using lum::io::FileIoStatus;
using testing::HasSubstr;

TEST(SdbRoundTrip, KeepsEveryFieldOfEveryClass) {
  const TemporaryFolder folder;
  for (const std::string& name : lum::getNodeClassNames()) {
    SCOPED_TRACE(name);
    const Ptr<Node> fresh = lum::createNode(lum::ClassNameNodeInitializer(name));
    const Ptr<Node> node = lum::createNode(lum::ClassNameNodeInitializer(name));
    UnusualValues::putInto(*node);
    lum::FieldList fields;
    node->listFields(fields);
    EXPECT_NE(firstDifference(*fresh, *node), "");
    ASSERT_EQ(writeDatabase(folder / "a.sdb", *node), FileIoStatus::Success);
    const Ptr<Node> read = readDatabase(folder / "a.sdb");
    EXPECT_EQ(firstDifference(*node, *read), "");
    // What was read is written as the same bytes.
    ASSERT_EQ(writeDatabase(folder / "b.sdb", *read), FileIoStatus::Success);
    EXPECT_EQ(readFile(folder / "a.sdb"), readFile(folder / "b.sdb"));
  }
}

TEST(SdbRoundTrip, KeepsReferencesSharedArraysAndCells) {
  const TemporaryFolder folder;
  const auto scene = makeScene();
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *scene), FileIoStatus::Success);
  const Ptr<lum::SceneNode> read(readDatabase(folder / "a.sdb"));
  EXPECT_EQ(firstDifference(*scene, *read), "");
  const auto* triad = read->getOrientationCanvas().getDrawableCollection().find<lum::TriadDrawable>();
  EXPECT_EQ(triad->getCameraAttributes(), read->getModelCanvas().hasCameraAttributes());
  const auto& surface = *read->getModelCanvas().getDrawableCollection().find<lum::SurfaceDrawable>();
  const auto* first = surface.find<lum::PolyDataNode>("first");
  EXPECT_EQ(first->getPoints(), surface.find<lum::PolyDataNode>("second")->getPoints());
  EXPECT_FALSE(first->getPolys()->IsStorage64Bit());
  EXPECT_TRUE(surface.find<lum::PolyDataNode>("wide")->getPolys()->IsStorage64Bit());
  EXPECT_NE(surface.find<lum::PolyDataNode>("empty")->getPoints(), nullptr);
  EXPECT_EQ(surface.find<lum::PolyDataNode>("none")->getPoints(), nullptr);
  ASSERT_EQ(writeDatabase(folder / "b.sdb", *read), FileIoStatus::Success);
  EXPECT_EQ(readFile(folder / "a.sdb"), readFile(folder / "b.sdb"));
}

TEST(SdbRoundTrip, LaysArraysOnBoundariesAsTheyAre) {
  const TemporaryFolder folder;
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *makeScene()), FileIoStatus::Success);
  const std::string bytes = readFile(folder / "a.sdb");
  EXPECT_EQ(bytes.substr(0, 59), R"({"format": "scene-graph database", "version": 1, "index": {)");
  EXPECT_EQ(bytes[255], '\n');
  lum::SDBReader reader(wide(folder / "a.sdb"));
  const auto arrays = reader.getArrays();
  // Shared ones are there once: 2 geometries of 9 arrays, and empty points.
  EXPECT_EQ(arrays.size(), 19U);
  for (const auto& array : arrays) {
    EXPECT_EQ(array.offset % 64, 0U);
    if (array.name == "Normals") {
      const std::string half("\0\0\0\0\0\0\xe0\x3f", 8);
      EXPECT_EQ(bytes.substr(array.offset, 8), half);
    }
  }
}

TEST(SdbRoundTrip, HoldsRecordsAndAppends) {
  const TemporaryFolder folder;
  const auto path = wide(folder / "a.sdb");
  const auto scene = makeScene();
  const auto plane = make<lum::Plane>();
  const auto camera = make<lum::CameraAttributes>();
  lum::SDBWriter writer;
  int number = -1;
  ASSERT_EQ(writer.open(path, true, true), FileIoStatus::Success);
  writer.addRecord("one", "", std::string(100, 'u'), *scene, number);
  EXPECT_EQ(number, 0);
  writer.addRecord("two", "d", "s", *plane, number);
  EXPECT_EQ(number, 1);
  ASSERT_EQ(writer.close(), FileIoStatus::Success);
  ASSERT_EQ(writer.open(path, true, false), FileIoStatus::Success);
  writer.addRecord("three", "", "", *camera, number);
  EXPECT_EQ(number, 2);
  ASSERT_EQ(writer.close(), FileIoStatus::Success);
  lum::SDBReader reader(path);
  ASSERT_EQ(reader.getRecords().size(), 3U);
  EXPECT_EQ(reader.getRecords()[0].simUUID, std::string(100, 'u'));
  EXPECT_EQ(reader.getRecords()[1].title, "two");
  EXPECT_EQ(firstDifference(*scene, *reader.readNode(0)), "");
  EXPECT_EQ(firstDifference(*plane, *reader.readNode(1)), "");
  EXPECT_EQ(firstDifference(*camera, *reader.readNode(2)), "");
  EXPECT_EQ(firstDifference(*scene, *reader.readNode(0)), "") << "a second time";
}

TEST(SdbRoundTrip, RefusesGeometryThatDoesNotFit) {
  const TemporaryFolder folder;
  const auto node = make<lum::PolyDataNode>();
  node->setName("wing");
  node->setPolyData(makeGeometry(false));
  vtkNew<vtkFloatArray> odd;
  odd->SetName("odd");
  odd->SetNumberOfTuples(4);
  node->setNodeDataArray(odd);
  EXPECT_EQ(writeDatabase(folder / "a.sdb", *node), FileIoStatus::WriteError);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

/// A chain of collections, so many nodes long.
Ptr<Node> makeChain(int length) {
  const Ptr<Node> root(make<lum::DrawableCollection>());
  auto* last = static_cast<lum::DrawableCollection*>(root.get());
  for (int i = 1; i < length; ++i) {
    last = &last->findOrCreate<lum::DrawableCollection>();
  }
  return root;
}

void* useDeepGraphs(void* argument) {
  const TemporaryFolder& folder = *static_cast<const TemporaryFolder*>(argument);
  const Ptr<Node> deepest = makeChain(Node::MAXIMUM_DEPTH);
  EXPECT_EQ(writeDatabase(folder / "a.sdb", *deepest), FileIoStatus::Success);
  EXPECT_EQ(firstDifference(*deepest, *readDatabase(folder / "a.sdb")), "");
  EXPECT_EQ(writeDatabase(folder / "b.sdb", *makeChain(Node::MAXIMUM_DEPTH + 1)), FileIoStatus::WriteError);
  EXPECT_EQ(firstDifference(*makeScene(), *makeScene()), "");
  std::ifstream in(folder / "a.sdb");
  EXPECT_TRUE(sdb::checkFormat(in, std::cerr));
  return nullptr;
}

TEST(SdbRoundTrip, GoesToTheGreatestDepthOnASmallStack) {
  const TemporaryFolder folder;
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, std::size_t{256} << 10);
  pthread_t thread{};
  ASSERT_EQ(pthread_create(&thread, &attributes, useDeepGraphs, const_cast<TemporaryFolder*>(&folder)), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

TEST(Compare, NamesTheNodeAndTheField) {
  struct Case {
    const char* expected;
    void (*change)(lum::SceneNode&);
  };
  const auto surfaceOf = [](lum::SceneNode& scene) -> lum::SurfaceDrawable& {
    return *scene.getModelCanvas().getDrawableCollection().find<lum::SurfaceDrawable>();
  };
  static const auto surface = surfaceOf;
  const Case cases[] = {
      {"name: scene against other", [](auto& scene) { scene.setName("other"); }},
      {"qualified name", [](auto& scene) { scene.setQualifiedName(""); }},
      {"foregroundCanvas: only one has a node", [](auto& scene) { scene.getForegroundCanvas(); }},
      {"surface\": nodes: 5 against 6 nodes",
       [](auto& scene) { surface(scene).template findOrCreate<lum::PolyDataNode>("new"); }},
      {"ColorAttributes\": color",
       [](auto& scene) { surface(scene).getColorAttributes()->setColor({}, false); }},
      {"opacity: 1 against 0.5",
       [](auto& scene) { surface(scene).getColorAttributes()->setOpacity(0.5, false); }},
      {"first\": points: the values differ",
       [](auto& scene) {
         auto* node = surface(scene).template find<lum::PolyDataNode>("first");
         auto geometry = makeGeometry(false);
         geometry->GetPoints()->SetPoint(0, -0.0, 0, 0);
         node->setPolyData(geometry);
       }},
      {"wide\": verts: offsets: ",
       [](auto& scene) {
         surface(scene).template find<lum::PolyDataNode>("wide")->setPolyData(makeGeometry(false));
       }},
      {"triad\": refers to CameraAttributes",
       [](auto& scene) {
         auto* triad =
             scene.getOrientationCanvas().getDrawableCollection().template find<lum::TriadDrawable>();
         triad->setCameraAttributes(&scene.getOrientationCanvas().getCameraAttributes());
         scene.getOrientationCanvas().getCameraAttributes();
       }},
  };
  for (const Case& each : cases) {
    const auto left = makeScene();
    const auto right = makeScene();
    EXPECT_EQ(firstDifference(*left, *right), "");
    if (std::string(each.expected).find("triad") != std::string::npos) {
      left->getOrientationCanvas().getCameraAttributes();
    }
    each.change(*right);
    EXPECT_THAT(firstDifference(*left, *right), HasSubstr(each.expected));
  }
}

}  // namespace

}  // namespace vemo
