#include "support/Nodes.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/coloring/DataLocationAttributes.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>

namespace vemo {

namespace {

/// The same lookups are asked of a small collection and of one with an index.
class LookupTest : public testing::TestWithParam<int> {};

TEST_P(LookupTest, FindsTheFirstByClassAndNameAndFollowsRenaming) {
  const auto collection = make<lum::DrawableCollection>();
  for (int i = 0; i < GetParam(); ++i) {
    ASSERT_TRUE(collection->addNode(*make<lum::SurfaceDrawable>("s" + std::to_string(i))));
  }
  const auto first = make<lum::PolyLineDrawable>("twin");
  const auto second = make<lum::PolyLineDrawable>("other");
  collection->addNode(*first);
  collection->addNode(*second);

  EXPECT_EQ(collection->find<lum::PolyLineDrawable>(), first.get());
  EXPECT_EQ(collection->find<lum::PolyLineDrawable>("other"), second.get());
  EXPECT_EQ(collection->find<lum::SurfaceDrawable>("twin"), nullptr);
  second->setName("twin");
  EXPECT_EQ(collection->find<lum::PolyLineDrawable>("twin"), first.get());
  EXPECT_EQ(collection->find<lum::PolyLineDrawable>("other"), nullptr);
  first->setName("renamed");
  EXPECT_EQ(collection->find<lum::PolyLineDrawable>("twin"), second.get());

  ASSERT_TRUE(collection->removeNode(*first));
  EXPECT_FALSE(collection->removeNode(*first));
  EXPECT_EQ(collection->find<lum::PolyLineDrawable>(), second.get());
  first->setName("twin");
  EXPECT_EQ(collection->find<lum::PolyLineDrawable>("twin"), second.get());

  EXPECT_EQ(&collection->findOrCreate<lum::PolyLineDrawable>("twin"), second.get());
  EXPECT_EQ(collection->findOrCreate<lum::TriadDrawable>().getName(), "TriadDrawable");
  EXPECT_EQ(collection->getNodeCount(), static_cast<std::size_t>(GetParam()) + 2);
}

INSTANTIATE_TEST_SUITE_P(SmallAndLarge, LookupTest, testing::Values(0, 100));

/// The first in the order of the nodes.
lum::Node* findInOrder(const lum::CollectionNode& collection, const std::string& className,
                       const std::optional<std::string>& name) {
  const auto found = std::ranges::find_if(collection.getNodes(), [&](const auto& held) {
    const auto& node = static_cast<const lum::Node&>(*held);
    return node.className() == className && (!name || node.getName() == *name);
  });
  return found != collection.getNodes().end() ? static_cast<lum::Node*>(found->getObject()) : nullptr;
}

TEST(CollectionNodeTest, FindsTheFirstAmongManyOfANameThatChange) {
  const std::string names[] = {"a", "b", "c", "d"};
  const auto collection = make<lum::DrawableCollection>();
  std::mt19937 random(1);
  const auto below = [&random](std::size_t end) { return random() % end; };
  for (int step = 0; step < 2000; ++step) {
    const std::size_t count = collection->getNodeCount();
    const std::string& name = names[below(std::size(names))];
    if (count < 20 || (count < 40 && below(3) == 0)) {
      below(2) == 0 ? collection->addNode(*make<lum::SurfaceDrawable>(name))
                    : collection->addNode(*make<lum::PolyLineDrawable>(name));
    } else if (below(3) == 0) {
      collection->removeNode(collection->getNode(below(count)));
    } else {
      collection->getNode(below(count)).setName(name);
    }
    for (const std::string& className :
         {lum::SurfaceDrawable::getClassName(), lum::PolyLineDrawable::getClassName()}) {
      ASSERT_EQ(collection->find(className), findInOrder(*collection, className, std::nullopt)) << step;
      for (const std::string& each : names) {
        ASSERT_EQ(collection->find(className, each), findInOrder(*collection, className, each)) << step;
      }
    }
  }
}

TEST(CollectionNodeTest, ANodeHasOneOwner) {
  const auto outer = make<lum::DrawableCollection>();
  const auto inner = make<lum::DrawableCollection>();
  const auto light = make<lum::Light>();
  ASSERT_TRUE(outer->addNode(*inner));
  EXPECT_FALSE(outer->addNode(*inner)) << "owned already";
  EXPECT_FALSE(inner->addNode(*outer)) << "a circle";
  EXPECT_FALSE(inner->addNode(*inner)) << "a circle";
  EXPECT_FALSE(outer->addNode(*light)) << "no drawable";
  lum::Owned<lum::DrawableCollection> slot;
  EXPECT_FALSE(slot.put(*light, inner.get())) << "owned already";
  ASSERT_TRUE(outer->removeNode(*inner));
  EXPECT_EQ(inner->getOwner(), nullptr);
  EXPECT_TRUE(slot.put(*light, inner.get()));
}

TEST(CollectionNodeTest, OneAttributesNodeOfEachClass) {
  const auto drawable = make<lum::SurfaceDrawable>();
  lum::AttributesCollection& attributes = drawable->getAttributesCollection();
  EXPECT_EQ(drawable->findAttributes<lum::BaseAttributes>(), nullptr);
  EXPECT_EQ(&drawable->getBaseAttributes(), &drawable->getBaseAttributes());
  EXPECT_FALSE(attributes.addNode(*make<lum::BaseAttributes>()));
  EXPECT_EQ(attributes.getNodeCount(), 1U);
  EXPECT_EQ(drawable->getBaseAttributes().getName(), "BaseAttributes");
  EXPECT_EQ(drawable->getDependents(), std::vector<lum::Node*>{&attributes});
}

TEST(CollectionNodeTest, ARecursiveSetterReachesWhatTheDrawableOwns) {
  const auto outer = make<lum::DrawableCollection>();
  auto& below = outer->findOrCreate<lum::SurfaceDrawable>().getBaseAttributes();
  outer->getBaseAttributes().setVisibility(false, false);
  EXPECT_TRUE(below.getVisibility());
  outer->getBaseAttributes().setVisibility(false, true);
  EXPECT_FALSE(below.getVisibility());
}

TEST(CollectionNodeTest, GeometryWithoutANameGetsOneOfItsOwn) {
  const auto drawable = make<lum::SurfaceDrawable>();
  lum::Drawable& base = *drawable;
  for (const char* name : {"", "PolyDataNode3", "", "", "given"}) {
    ASSERT_TRUE(base.addNode(*make<lum::PolyDataNode>(name)));
  }
  std::vector<std::string> names;
  for (const auto& node : drawable->getNodes()) {
    names.push_back(node->getName());
  }
  EXPECT_EQ(names, (std::vector<std::string>{"PolyDataNode", "PolyDataNode3", "PolyDataNode4",
                                             "PolyDataNode5", "given"}));
}

TEST(CollectionNodeTest, AReferenceOutlivesNothing) {
  const auto triad = make<lum::TriadDrawable>();
  auto scene = make<lum::SceneNode>();
  triad->setCameraAttributes(&scene->getModelCanvas().getCameraAttributes());
  EXPECT_NE(triad->getCameraAttributes(), nullptr);
  EXPECT_EQ(triad->getDependents().size(), 0U);
  scene = nullptr;
  EXPECT_EQ(triad->getCameraAttributes(), nullptr);
}

TEST(CollectionNodeTest, AChangeMarksTheNodeAndItAlone) {
  const auto scene = make<lum::SceneNode>("scene");
  auto& camera = scene->getModelCanvas().getCameraAttributes();
  const auto before = camera.getModificationTime();
  const auto sceneBefore = scene->getModificationTime();
  camera.setPosition(camera.getPosition());
  EXPECT_EQ(camera.getModificationTime(), before);
  camera.setPosition({-0.0, 0.0, 1.0});
  EXPECT_TRUE(std::signbit(camera.getPosition()[0])) << "right to the last bit";
  camera.setParallelScale(2.0);
  EXPECT_GT(camera.getModificationTime(), before);
  EXPECT_EQ(scene->getModificationTime(), sceneBefore);
}

}  // namespace

}  // namespace vemo
