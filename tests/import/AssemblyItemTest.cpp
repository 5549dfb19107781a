#include "SceneFixture.h"
#include "support/SmallStack.h"
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/GeometryItem.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

namespace vemo {

namespace {

class AssemblyItemTest : public SceneFixture {};

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

TEST_F(AssemblyItemTest, TheDeepestSceneFitsASmallStack) {
  std::string xml = geometry("polys='tri'", "<array name='d' dim='1' vertexData='true' data='four'/>");
  std::string path = "g";
  // The scene is the first element of the depth, array and geometry the last.
  for (std::size_t i = 0; i < SceneFileReader::MAX_ELEMENT_DEPTH - 3; ++i) {
    xml = assembly("A", xml, "version='1'");
    path = "A/" + path;
  }
  runOnSmallStack([&] { convert(xml); });
  EXPECT_TRUE(collection(path).find<lum::SurfaceDrawable>());
}

}  // namespace

}  // namespace vemo
