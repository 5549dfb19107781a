#include "SceneFixture.h"
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/GeometryItem.h>
#include <vemo/scenegraph/attributes/ScalarAttributes.h>

#include <gmock/gmock.h>
#include <pthread.h>

namespace vemo {

namespace {

class AssemblyItemTest : public SceneFixture {
 protected:
  /// The first colour's red in the table that colours the geometry, times 255.
  double redOf(const std::string& path) {
    auto& drawable = this->drawable<lum::SurfaceDrawable>(path);
    return drawable.getAttributes<lum::ScalarAttributes>().getColorLookupTable().getColorValues().at(0) * 255;
  }
};

const std::string DATA = "<array name='d' dim='1' vertexData='true' data='four'/>";

std::string colormap(const std::string& name, const std::string& red) {
  return "<colormap name='" + name + "' min='1' max='2'><c>" + red + "0000ff</c></colormap>";
}

TEST_F(AssemblyItemTest, TopLevelChildrenStandInTheCollectionGiven) {
  convert(assembly("A", assembly("B", geometry("polys='tri'"))) + geometry("name='top' polys='tri'"));
  auto& model = collection("");
  ASSERT_EQ(model.getNodeCount(), 2U);
  EXPECT_EQ(model.getNode(0).getName(), "A");
  EXPECT_EQ(model.getNode(1).getName(), "top");
  EXPECT_EQ(collection("A/B/g").getNodeCount(), 1U);
}

TEST_F(AssemblyItemTest, OnlyTheFirstLevelIsNamedInFull) {
  convert(assembly("A", assembly("B", geometry("polys='tri'"))));
  EXPECT_EQ(collection("A").getQualifiedName(), "A");
  EXPECT_FALSE(collection("A/B").getQualifiedName());
  EXPECT_FALSE(collection("").getQualifiedName());
}

TEST_F(AssemblyItemTest, AssembliesOfOneNameShareACollection) {
  convert(assembly("A", geometry("polys='tri'")) + assembly("A", geometry("name='h' polys='tri'")));
  ASSERT_EQ(collection("").getNodeCount(), 1U);
  EXPECT_EQ(collection("A").getNodeCount(), 2U);
}

TEST_F(AssemblyItemTest, EmptyOnesAreDroppedWithAllTheyHave) {
  convert(assembly("none", colormap("c", "ff") + "<transform/><legend/>") + assembly("A", assembly("B", "")));
  EXPECT_EQ(collection("").getNodeCount(), 1U);
  EXPECT_EQ(collection("A").getNodeCount(), 0U);
  const auto log = takeLog();
  EXPECT_TRUE(logHas(log, "dropping empty assembly \"none\"\n"));
  EXPECT_TRUE(logHas(log, "dropping empty assembly \"B\"\n"));
  EXPECT_EQ(_sceneNode->getForegroundCanvas().getDrawableCollection().getNodeCount(), 0U);
}

TEST_F(AssemblyItemTest, LogsItsSteps) {
  convert(assembly("A", "<legend/>" + geometry("polys='tri'")));
  const auto log = takeLog();
  for (const char* line :
       {"AssemblyItem::read: 2 children found", "***** Annotation::addToCollection is being processed *****",
        "DrawableCollection A for parent DrawableCollection", "1 children detected in the assembly \"A\"",
        "The legend of \"A\" has no colormap and is left out",
        "***** GeometryItem::addToCollection, level 2 *****"}) {
    EXPECT_TRUE(logHas(log, line)) << line;
  }
}

TEST_F(AssemblyItemTest, ColorsEverythingBelowByItsActiveColormap) {
  convert(assembly("A", colormap("b", "0b") + colormap("a", "0a") + colormap("a", "0c") +
                            assembly("B", geometry("polys='tri'", DATA)) + geometry("polys='tri'")) +
          assembly("C", colormap("outer", "0d") +
                            assembly("D", colormap("inner", "0e") + geometry("polys='tri'", DATA))) +
          assembly("E", assembly("F", colormap("f", "0f") + geometry("polys='tri'", DATA)) +
                            assembly("G", colormap("g", "11") + geometry("polys='tri'", DATA))));
  EXPECT_DOUBLE_EQ(redOf("A/B/g"), 0x0c) << "first by name, the later of one name";
  EXPECT_DOUBLE_EQ(redOf("C/D/g"), 0x0d) << "an outer colormap has the last word";
  EXPECT_DOUBLE_EQ(redOf("E/F/g"), 0x0f);
  EXPECT_DOUBLE_EQ(redOf("E/G/g"), 0x11);
  EXPECT_FALSE(drawable<lum::SurfaceDrawable>("A/g").findAttributes<lum::ScalarAttributes>());
}

TEST_F(AssemblyItemTest, ChoosesTheActiveColormap) {
  AssemblyItem item("A");
  EXPECT_EQ(item.getActiveColormap(), nullptr);
  item.addColormap(std::make_unique<Colormap>("b"));
  item.addColormap(std::make_unique<Colormap>("a"));
  EXPECT_EQ(item.getActiveColormap()->getName(), "a");
  item.setActiveArrayName("b");
  EXPECT_EQ(item.getActiveColormap()->getName(), "b");
  item.setActiveArrayName("c");
  EXPECT_EQ(item.getActiveColormap()->getName(), "a");
}

TEST_F(AssemblyItemTest, SettingItsVisibilityShowsItsChildren) {
  AssemblyItem outer("outer");
  outer.add(std::make_unique<AssemblyItem>("inner"));
  auto& inner = static_cast<AssemblyItem&>(*outer.getChildren().front());
  inner.add(std::make_unique<GeometryItem>("leaf"));
  inner.getChildren().front()->setVisibility(0.0);
  EXPECT_TRUE(inner.hasHiddenItems());
  EXPECT_FALSE(outer.hasHiddenItems()) << "grandchildren are not looked at";
  outer.setVisibility(0.0);
  EXPECT_TRUE(outer.hasHiddenItems());
  EXPECT_EQ(inner.getVisibility(), 1.0);
  EXPECT_EQ(inner.getChildren().front()->getVisibility(), 1.0);
}

// What a thread of a host may have; a sanitizer needs more for the same calls.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t STACK_SIZE = 2 << 20;
#else
constexpr std::size_t STACK_SIZE = 256 << 10;
#endif

TEST_F(AssemblyItemTest, TheDeepestSceneFitsASmallStack) {
  std::string xml = geometry("polys='tri'", DATA);
  std::string path = "g";
  // The scene is the first element of the depth, array and geometry the last.
  for (std::size_t i = 0; i < SceneFileReader::MAX_ELEMENT_DEPTH - 3; ++i) {
    xml = assembly("A", xml, "version='1'");
    path = "A/" + path;
  }
  const std::function<void()> body = [&] { convert(xml); };
  const auto run = [](void* function) -> void* {
    (*static_cast<const std::function<void()>*>(function))();
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, STACK_SIZE), 0);
  pthread_t thread{};
  ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&body)), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  EXPECT_TRUE(collection(path).find<lum::SurfaceDrawable>());
}

}  // namespace

}  // namespace vemo
