#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

lum::Ptr<lum::Node> makeIn(int session, const std::string& className) {
  return lum::createNode(lum::ClassNameAndSessionNodeInitializer(className, session));
}

/// Opens the registry's protected door to the node of a name.
class OpenRegistry : public lum::NodeRegistry {
 public:
  static lum::Node* get(lum::NodeRegistry& registry, const std::string& name, bool& created,
                        Properties& properties) {
    return (registry.*&OpenRegistry::getNode)(name, created, properties);
  }
};

TEST(NodeRegistryTest, ASessionListsItsNodesAndReleasesThoseItKeeps) {
  auto& sessions = lum::NodeRegistrySessions::getSingleton();
  const int first = sessions.createSession();
  const int second = sessions.createSession();
  EXPECT_NE(first, second);
  const auto held = makeIn(first, "SceneNode");
  const auto outside = makeIn(lum::NO_SESSION, "SceneNode");
  const auto elsewhere = makeIn(second, "SceneNode");
  lum::WeakPtr<lum::Node> kept;
  {
    const auto light = makeIn(first, "Light");
    const auto gone = makeIn(first, "SceneNode");
    EXPECT_EQ(lum::NodeRegistry::getSingleton(first).getNodes("SceneNode").size(), 2U);
    kept = light.get();
    lum::NodeRegistry::getSingleton(first).keep(*light);
  }
  EXPECT_EQ(lum::NodeRegistry::getSingleton(first).getNodes("SceneNode"), std::vector{held.get()});
  EXPECT_NE(kept.get(), nullptr);
  EXPECT_TRUE(sessions.destroySession(first));
  EXPECT_EQ(kept.get(), nullptr);
  EXPECT_FALSE(sessions.destroySession(first));
  EXPECT_THROW(lum::NodeRegistry::getSingleton(first), InternalError);
  EXPECT_EQ(held->getSessionId(), first) << "a node that is held outlives its session";
  sessions.destroySession(second);
  EXPECT_FALSE(makeIn(lum::NO_SESSION, "Drawable")) << "is abstract";
}

TEST(NodeRegistryTest, InitializersKeepTemporaryNames) {
  const lum::ClassNameNodeInitializer initializer(std::string("DrawableCollection"));
  EXPECT_TRUE(lum::createNode(initializer));
}

TEST(NodeRegistryTest, GivesTheNodeOfANameOrMakesIt) {
  auto& sessions = lum::NodeRegistrySessions::getSingleton();
  const int session = sessions.createSession();
  auto& registry = lum::NodeRegistry::getSingleton(session);
  Properties properties;
  bool created = true;
  EXPECT_EQ(OpenRegistry::get(registry, "lamp", created, properties), nullptr);
  EXPECT_FALSE(created);
  properties.set("class", "Light");
  const lum::Node* made = OpenRegistry::get(registry, "lamp", created, properties);
  ASSERT_NE(made, nullptr);
  EXPECT_TRUE(created);
  EXPECT_EQ(made->className(), "Light");
  EXPECT_EQ(OpenRegistry::get(registry, "lamp", created, properties), made);
  EXPECT_FALSE(created);
  sessions.destroySession(session);
}

}  // namespace

}  // namespace vemo
