#include "support/Databases.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/NodeInputStream.h>
#include <vemo/scenegraph/io/NodeOutputStream.h>
#include <vemo/scenegraph/io/SceneGraphReader.h>

#include <vtkDataArray.h>
#include <vtkWeakPointer.h>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace vemo {

namespace {

using lum::NodeInputStream;
using lum::NodeOutputStream;

bool isRead(const std::string& scene, NodeInputStream& stream) {
  lum::SceneGraphReader reader(stream);
  std::istringstream in(scene);
  const bool read = reader.loadSceneFileFromInputStream(in);
  EXPECT_EQ(read, reader.getError().empty());
  return read;
}

/// How many of the payload's streams do not decode.
int load(const Payload& payload, NodeInputStream& stream) {
  int failures = isRead(payload.scene, stream) ? 0 : 1;
  lum::SceneGraphReader reader(stream);
  for (const std::string& each : payload.data) {
    std::istringstream dataIn(each);
    failures += reader.loadVtkDataFromInputStream(dataIn) ? 0 : 1;
  }
  return failures;
}

Payload payloadOf(const Node& node) {
  NodeOutputStream out;
  node.write(out);
  return Payload(out);
}

TEST(StreamTest, TakesDataInAnyOrderAndKeepsTheSceneForItsSession) {
  const auto scene = makeScene();
  Payload payload = payloadOf(*scene);
  std::ranges::reverse(payload.data);
  auto& sessions = lum::NodeRegistrySessions::getSingleton();
  const int session = sessions.createSession();
  lum::WeakPtr<Node> root;
  {
    NodeInputStream in(session);
    EXPECT_EQ(load(payload, in), 0);
    root = in.getRoots().at(0).get();
  }
  const auto found = lum::NodeRegistry::getSingleton(session).getNodes("SceneNode");
  ASSERT_EQ(found, std::vector<Node*>{root.get()});
  EXPECT_EQ(firstDifference(*scene, *found[0]), "");
  sessions.destroySession(session);
  EXPECT_FALSE(root);
}

TEST(StreamTest, LeavesGeometryEmptyWhenItsDataIsMissing) {
  Payload payload = payloadOf(*makeScene());
  // The points that the first two geometries share; then one damaged, one
  // twice, one of another scene, nothing.
  payload.data.erase(payload.data.begin());
  payload.data[3].back() = static_cast<char>(payload.data[3].back() ^ 1);
  payload.data.push_back(payload.data[0]);
  const auto other = make<lum::PolyDataNode>();
  other->setPolyData(makeGeometry(true));
  payload.data.push_back(payloadOf(*other).data[2]);
  payload.data.emplace_back();
  NodeInputStream in(lum::NO_SESSION);
  EXPECT_EQ(load(payload, in), 4);
  const Ptr<lum::SceneNode> read(in.getRoots().at(0));
  const auto& surface = surfaceOf(*read);
  const auto* first = surface.find<lum::PolyDataNode>("first");
  EXPECT_EQ(first->getPoints(), nullptr);
  EXPECT_EQ(first->getPolys(), nullptr);
  EXPECT_NE(surface.find<lum::PolyDataNode>("wide")->getPolys(), nullptr);
}

TEST(StreamTest, RefusesEveryPrefixAndEveryWrongByte) {
  const Payload payload = payloadOf(*makeScene());
  const auto isReadAlone = [](const std::string& scene) {
    NodeInputStream stream(lum::NO_SESSION);
    const bool read = isRead(scene, stream);
    EXPECT_TRUE(read || stream.getRoots().empty());
    return read;
  };
  // A stream of no scenes is one.
  for (std::size_t size = 0; size < payload.scene.size(); ++size) {
    ASSERT_EQ(isReadAlone(payload.scene.substr(0, size)), size == 8) << size;
    std::string wrong = payload.scene;
    wrong[size] = static_cast<char>(wrong[size] ^ 0x41);
    ASSERT_FALSE(isReadAlone(wrong)) << size;
  }
  const std::string data = payload.data[0];
  // Of a description, which begins with its size, that is longer than it should be.
  std::string longer = data;
  longer.insert(9 + static_cast<std::size_t>(longer[8]++), 1, '\0');
  for (std::size_t size = 0; size < data.size(); ++size) {
    NodeInputStream stream(lum::NO_SESSION);
    std::istringstream scene(payload.scene);
    stream.readScene(scene);
    std::string wrong = data;
    wrong[size] = static_cast<char>(wrong[size] ^ 0x41);
    // The type may be another one of four bytes.
    std::string alike = data;
    alike[size] = static_cast<char>(alike[size] ^ 12);
    for (const std::string& damaged : {data.substr(0, size), wrong, alike, data + "x", longer}) {
      std::istringstream in(damaged);
      EXPECT_THROW(stream.readData(in), lum::io::FileError) << size;
    }
    std::istringstream right(data);
    EXPECT_NO_THROW(stream.readData(right));
  }
}

TEST(StreamTest, CarriesOnlyWhatChanged) {
  const auto scene = makeScene();
  auto& drawables = scene->getModelCanvas().getDrawableCollection();
  auto& surface = surfaceOf(*scene);
  auto& wide = *surface.find<lum::PolyDataNode>("wide");
  auto& triad = triadOf(*scene);
  struct Step {
    std::function<void()> change;
    std::size_t arrays;
  };
  const Step steps[] = {
      {[&] { surface.getColorAttributes()->setOpacity(0.5, false); }, 0},
      {[&] { surface.getColorAttributes()->setOpacity(1.0, false); }, 0},
      {[&] { wide.setName("renamed"); }, 0},
      {[&] { wide.setPolyData(makeGeometry(false)); }, 9},
      {[&] { wide.setPolyData(vtkNew<vtkPolyData>()); }, 0},
      {[&] { triad.setCameraAttributes(nullptr); }, 0},
      {[&] { triad.setCameraAttributes(&scene->getModelCanvas().getCameraAttributes()); }, 0},
      {[&] { surface.removeNode(*surface.find<lum::PolyDataNode>("none")); }, 0},
      {[&] { surface.removeNode(*surface.find<lum::PolyDataNode>("first")); }, 0},
      {[&] {
         auto& group = drawables.findOrCreate<lum::DrawableCollection>("group");
         const Ptr<Node> moved(&surface);
         drawables.removeNode(surface);
         group.addNode(surface);
       },
       0},
      {[&] {
         // From a later place to an earlier one.
         auto& front = scene->getForegroundCanvas().getDrawableCollection();
         const Ptr<Node> moved(&triad);
         scene->getOrientationCanvas().getDrawableCollection().removeNode(triad);
         front.addNode(triad);
       },
       0},
      {[] {}, 0},
  };
  NodeOutputStream out;
  NodeInputStream in(lum::NO_SESSION);
  scene->writeChanges(out);
  const Payload whole(out);
  ASSERT_EQ(load(whole, in), 0);
  const Ptr<Node> mirror = in.getRoots().at(0);
  for (std::size_t i = 0; i < std::size(steps); ++i) {
    SCOPED_TRACE(i);
    steps[i].change();
    scene->writeChanges(out);
    const Payload payload(out);
    EXPECT_EQ(payload.data.size(), steps[i].arrays);
    EXPECT_LT(payload.scene.size(), whole.scene.size() / 4);
    ASSERT_EQ(load(payload, in), 0);
    ASSERT_EQ(in.getRoots().size(), 1U);
    ASSERT_EQ(firstDifference(*scene, *mirror), "");
  }
}

TEST(StreamTest, RefersToNodesThatComeBack) {
  const auto scene = makeScene();
  const Ptr<Node> camera(triadOf(*scene).getCameraAttributes());
  auto& attributes = scene->getModelCanvas().getAttributesCollection();
  NodeOutputStream out;
  NodeInputStream in(lum::NO_SESSION);
  const auto send = [&] {
    scene->writeChanges(out);
    EXPECT_EQ(load(Payload(out), in), 0);
    return Ptr<lum::SceneNode>(in.getRoots().at(0));
  };
  EXPECT_EQ(firstDifference(*scene, *send()), "");
  attributes.removeNode(*camera);
  EXPECT_EQ(triadOf(*send()).getCameraAttributes(), nullptr);
  attributes.addNode(*camera);
  EXPECT_EQ(firstDifference(*scene, *send()), "");
}

// Both ends, whatever the order in which data arrives; but not what the host may show again.
TEST(StreamTest, LetsGoOfArraysThatTheHostHasReleased) {
  const auto node = make<lum::PolyDataNode>();
  const auto shownAgain = makeGeometry(false);
  NodeOutputStream out;
  NodeInputStream in(lum::NO_SESSION);
  std::vector<vtkWeakPointer<vtkDataArray>> former;
  for (int i = 0; i < 4; ++i) {
    node->setPolyData(i % 2 == 0 ? shownAgain : makeGeometry(i == 1));
    node->writeChanges(out);
    Payload payload(out);
    EXPECT_EQ(payload.data.empty(), i == 2);
    if (i == 1) {
      std::ranges::reverse(payload.data);
    }
    ASSERT_EQ(load(payload, in), 0);
    const Ptr<lum::PolyDataNode> read(in.getRoots().at(0));
    ASSERT_EQ(firstDifference(*node, *read), "");
    former.emplace_back(read->getPoints());
  }
  EXPECT_NE(former[0], nullptr);
  EXPECT_EQ(former[1], nullptr);
  EXPECT_EQ(in.getMissingArrayCount(), 0U);
  EXPECT_EQ(in.getUnusedArrayCount(), 0U);
}

/// A scene stream of one message. `changed`: its count, and numbers of known nodes.
std::string sceneStream(const std::string& tables, char nodeCount, const std::string& changed,
                        const std::string& records, const std::string& more = {}) {
  const std::string padding(static_cast<std::size_t>(8 * nodeCount) - records.size(), '\0');
  const std::string graph = nodeCount + changed + records + padding;
  const std::string message = tables + static_cast<char>(graph.size()) + graph + more;
  const std::uint64_t sizeAndHash[] = {message.size(), hashOfPart(message.data(), message.size())};
  return "LUMSCN2\n" + std::string(reinterpret_cast<const char*>(sizeAndHash), sizeof sizeAndHash) + message;
}

// The second message moves a node into a field, or under a node, that is unknown
// here; the third would change what the node owns.
TEST(StreamTest, ReleasesNodesThatLeaveAndRefusesWhatDoesNotFit) {
  using namespace std::literals;
  const std::string tables =
      "\4\22DrawableCollection\5nodes\4gone\7Unknown\0\2\0\2\1\23\0\2\23\0\3\1\1\23\0\0"s;
  const std::string none(4, '\0');
  // A node: class + 1 or 0 and a number, levels up to its owner, field, presence bits.
  const std::string nested = sceneStream(tables, 3, "\0"s, "\1\0\0\1\1\0\0\1\1\0\0\0"s);
  const std::string moves[] = {
      sceneStream(none, 2, "\1\0"s, "\0\0\0\0\0\1\1\1\0"s),
      sceneStream(none, 3, "\2\0\1"s, "\0\0\0\0\2\1\0\0\0\1\1\0\0\0"s),
  };
  const std::string later = sceneStream(none, 3, "\1\1"s, "\0\0\0\0\1\1\0\0\0"s);
  for (const std::string& move : moves) {
    NodeInputStream in(lum::NO_SESSION);
    ASSERT_TRUE(isRead(nested, in));
    const Ptr<lum::DrawableCollection> root(in.getRoots().at(0));
    EXPECT_EQ(root->getNodeCount(), 1U);
    EXPECT_TRUE(isRead(move, in));
    EXPECT_EQ(root->getNodeCount(), 0U);
    EXPECT_FALSE(isRead(later, in));
    // Numbers would be out of step.
    EXPECT_FALSE(isRead(sceneStream(none, 1, "\0"s, "\1\0\0\0"s), in));
  }
  const std::string wrong[] = {
      sceneStream(none, 1, "\2\0\1"s, "\0\0\0\0\0"s),    // the second node, which changed, is missing
      sceneStream(none, 2, "\0"s, "\0\0\0\1\1\0\0\0"s),  // the first gets another, and did not change
      sceneStream(none, 1, "\0"s, "\0\1\0\0"s),          // the first has an owner
      sceneStream(none, 1, "\0"s, "\0\0\0\0"s, "\0"s),   // more follows
  };
  for (const std::string& each : wrong) {
    NodeInputStream in(lum::NO_SESSION);
    ASSERT_TRUE(isRead(nested, in));
    EXPECT_FALSE(isRead(each, in));
  }
  // Points that the first message already releases.
  const std::string points = "\2\14PolyDataNode\6points\0\1\0\1\1\17\0\1\11\3\1\0"s + std::string(8, '\0');
  NodeInputStream in(lum::NO_SESSION);
  EXPECT_TRUE(isRead(sceneStream(points, 1, "\0"s, "\1\0\4\0\0\1\0"s), in));
  EXPECT_FALSE(isRead(sceneStream(none, 1, "\0"s, "\1\0\4\0\0"s), in));
}

// Of a root, which owns the first of a chain of three.
TEST(StreamTest, TakesNodesOnlyOutOfWhatLeavesTheGraph) {
  using namespace std::literals;
  const std::string tables = "\2\22DrawableCollection\5nodes\0\1\0\1\1\23\0\0"s;
  const std::string none(4, '\0');
  const std::string chain = sceneStream(tables, 4, "\0"s, "\1\0\0\1\1\0\0\1\1\0\0\1\1\0\0"s);
  const std::string root = "\0\0\0\0"s, first = "\0\1"s, second = "\0\2"s, third = "\0\3"s;
  const std::string below = "\1\0"s, beside = "\2\0"s;
  struct Case {
    std::string records;
    char count;
    bool isRight;
  };
  const Case cases[] = {
      {root + third + below, 2, true},
      {root + third + below + second + beside, 3, false},
      {root + third + below + first + beside, 3, false},
      {root + second + below + first + beside, 3, false},
      {root + first + below + third + beside, 3, false},
      {root + third + below + third + beside, 3, false},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(&each - cases);
    NodeInputStream in(lum::NO_SESSION);
    ASSERT_TRUE(isRead(chain, in));
    EXPECT_EQ(isRead(sceneStream(none, each.count, "\1\0"s, each.records), in), each.isRight);
  }
  // Out of another graph, which stays as it is.
  NodeInputStream in(lum::NO_SESSION);
  ASSERT_TRUE(isRead(chain, in));
  ASSERT_TRUE(isRead(sceneStream(none, 1, "\0"s, "\1\0\0"s), in));
  EXPECT_FALSE(isRead(sceneStream(none, 2, "\1\4"s, "\0\4\0\0"s + first + below), in));
}

TEST(StreamTest, RefusesWhatMovesTooDeep) {
  constexpr int LENGTH = 100;
  for (const int moved : {Node::MAX_DEPTH - LENGTH - 1, Node::MAX_DEPTH - LENGTH}) {
    const auto root = make<lum::DrawableCollection>();
    const Ptr<Node> longer = makeChain(LENGTH);
    const Ptr<Node> shorter = makeChain(moved);
    root->addNode(*longer);
    root->addNode(*shorter);
    NodeOutputStream out;
    NodeInputStream in(lum::NO_SESSION);
    root->write(out);
    ASSERT_EQ(load(Payload(out), in), 0);
    Node* end = longer.get();
    while (!end->getDependents().empty()) {
      end = end->getDependents().front();
    }
    root->removeNode(*shorter);
    dynamic_cast<lum::DrawableCollection&>(*end).addNode(*shorter);
    root->writeChanges(out);
    EXPECT_EQ(load(Payload(out), in), moved + LENGTH + 1 > Node::MAX_DEPTH ? 1 : 0);
  }
}

TEST(StreamTest, RefusesMoreNodesThanItMayRead) {
  NodeOutputStream out;
  makeChain(10)->write(out);
  makeChain(10)->write(out);
  const Payload payload(out);
  for (const std::uint64_t limit : {20U, 19U}) {
    NodeInputStream in(lum::NO_SESSION);
    in.setNodeLimit(limit);
    EXPECT_EQ(isRead(payload.scene, in), limit == 20);
  }
}

// Would take minutes if it took longer for each scene than for the one before.
TEST(StreamTest, CarriesAGreatManyScenes) {
  constexpr std::size_t COUNT = 60'000;
  const auto scene = make<lum::DrawableCollection>();
  NodeOutputStream out;
  for (std::size_t i = 0; i < COUNT; ++i) {
    scene->write(out);
  }
  NodeInputStream in(lum::NO_SESSION);
  EXPECT_EQ(load(Payload(out), in), 0);
  EXPECT_EQ(in.getRoots().size(), COUNT);
}

TEST(StreamTest, StreamsAreReadOrWriteOnly) {
  NodeOutputStream out;
  NodeInputStream in(lum::NO_SESSION);
  std::istringstream text("text");
  EXPECT_THROW(out.readScene(text), InternalError);
  EXPECT_THROW(makeScene()->write(in), InternalError);
  EXPECT_THROW(NodeInputStream(1 << 30), InternalError);
}

}  // namespace

}  // namespace vemo
