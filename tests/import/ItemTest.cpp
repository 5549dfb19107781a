// What items do besides what tests/data/expected/conversion shows: for hosts
// that make, change or convert items by themselves.

#include "ForeignLocale.h"
#include "SceneFixture.h"
#include "support/Nodes.h"
#include "support/SmallStack.h"
#include <vemo/import/decorations/Annotation.h>
#include <vemo/import/decorations/AxesItem.h>
#include <vemo/import/decorations/Gradient.h>
#include <vemo/import/decorations/Image2D.h>
#include <vemo/import/decorations/Legend.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/GeometryTransform.h>
#include <vemo/import/items/ReflectTransform.h>
#include <vemo/import/items/RepeatTransform.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>

#include <vtkCellArray.h>
#include <vtkPlane.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

#include <algorithm>

namespace vemo {

namespace {

class ItemTest : public SceneFixture {
 protected:
  /// What the conversion of an item into the model canvas fails with.
  std::string conversionFailure(GraphicsItem& item) {
    return failureOf([&] { item.addToCollection(_shared, collection(""), 1, ""); });
  }

  SharedBySiblings _shared;
};

TEST_F(ItemTest, AnItemOfANewerVersionIsLeftAsItIs) {
  AssemblyItem item("before");
  EXPECT_THROW(item.read(*elementOf("<assembly name='after' visibility='0.5' version='2'/>"), nullptr),
               FutureVersionException);
  EXPECT_EQ(item.getName(), "before");
  EXPECT_EQ(item.getVisibility(), 1.0);
}

TEST_F(ItemTest, RequiresWhatItIsReadAndConvertedWith) {
  const std::string needsReader = "InternalError: SceneFileReadable can't be NULL for this object | reader";
  EXPECT_EQ(failureOf([] { Image2D("i").read(*elementOf("<image2d pixels='p'/>"), nullptr); }), needsReader);
  EXPECT_EQ(failureOf([] { GeometryItem("g").read(*elementOf("<geometry version='9'/>"), nullptr); }),
            needsReader);
  EXPECT_EQ(failureOf([] { Scene("s").read(*elementOf("<scene/>"), nullptr); }),
            "InternalError: Can't extract color from such a short string | colorStr.length() >= 8");
  _sceneNode = make<lum::SceneNode>();
  _shared.sceneNode = _sceneNode;
  AxesItem axes("axes");
  EXPECT_EQ(conversionFailure(axes),
            "InternalError: Must be already set by Scene | modelCanvas.hasCameraAttributes()");
}

// ---- Scenes and assemblies ----

TEST_F(ItemTest, ASceneKeepsTheWindow) {
  const auto scene = read("<view windowX='1' windowY='2' windowWidth='3' windowHeight='4'/>");
  const Camera& camera = scene->getCamera();
  EXPECT_EQ((std::vector{camera.windowX, camera.windowY, camera.windowWidth, camera.windowHeight}),
            (std::vector{1, 2, 3, 4}));
  EXPECT_EQ(scene->getBackgroundColor(), (Color{255, 128, 0, 255}));
  EXPECT_EQ(scene->getGradient(), nullptr);
}

TEST_F(ItemTest, ASceneConvertsAgainIntoTheSameSceneNode) {
  const auto scene = read("<clip/>" + assembly("A", geometry("polys='tri'")));
  convert("");
  _shared.sceneNode = _sceneNode;
  scene->addToCollection(_shared, collection(""), 0, "noname");
  scene->addToCollection(_shared, collection(""), 0, "noname");
  EXPECT_EQ(_sceneNode->getModelCanvas().getClipPlanesAttributes().getClippingPlanes().getNodeCount(), 2U);
  EXPECT_EQ(collection("").getNodeCount(), 1U);
}

TEST_F(ItemTest, AnAssemblyLogsNumbersTheSameInEveryLocale) {
  std::string children;
  for (int i = 0; i < 1000; ++i) {
    children += "<x/>";
  }
  const ForeignLocale foreign;
  read(children);
  EXPECT_TRUE(logHas(takeLog(), "AssemblyItem::read: 1000 children found"));
}

TEST_F(ItemTest, AnAssemblyChoosesTheActiveColormap) {
  AssemblyItem item("A");
  EXPECT_EQ(item.getActiveColormap(), nullptr);
  item.addColormap(std::make_unique<Colormap>("b"));
  item.addColormap(std::make_unique<Colormap>("a"));
  for (const auto& [active, found] : {std::pair("", "a"), {"b", "b"}, {"c", "a"}}) {
    item.setActiveArrayName(active);
    EXPECT_EQ(item.getActiveColormap()->getName(), found);
  }
}

TEST_F(ItemTest, SettingTheVisibilityOfAnAssemblyShowsItsChildren) {
  AssemblyItem outer("outer");
  outer.add(std::make_unique<AssemblyItem>("inner"));
  auto& inner = static_cast<AssemblyItem&>(*outer.getChildren().front());
  inner.add(std::make_unique<GeometryItem>("leaf"));
  inner.getChildren().front()->setVisibility(0.0);
  EXPECT_TRUE(inner.hasHiddenItems());
  EXPECT_FALSE(outer.hasHiddenItems()) << "grandchildren are ignored";
  outer.setVisibility(0.0);
  EXPECT_TRUE(outer.hasHiddenItems());
  EXPECT_EQ(inner.getVisibility(), 1.0);
  EXPECT_EQ(inner.getChildren().front()->getVisibility(), 1.0);
}

TEST_F(ItemTest, AnAssemblyConvertsWhatAHostAdds) {
  convert("");
  auto text = std::make_unique<Annotation>("made");
  text->setText("x");
  text->setMode(lum::CoordinateSpace::MODEL);
  text->setTextHeight(0.5);
  AssemblyItem group("A");
  group.add(std::move(text));
  group.add(std::make_unique<Gradient>("background"));
  EXPECT_EQ(conversionFailure(group), "");
  const auto* const made = collection("A").find<lum::TextDrawable>("made");
  ASSERT_TRUE(made);
  EXPECT_EQ(made->findAttributes<lum::TextAttributes>()->getFontSize(), 0.5);
  EXPECT_EQ(collection("A").getNodeCount(), 1U) << "a gradient is not drawn";
  EXPECT_TRUE(logHas(takeLog(), "***** Gradient::addToCollection not implemented *****"));
}

TEST_F(ItemTest, TheDeepestSceneFitsASmallStack) {
  std::string xml = geometry("polys='tri'", "<array name='d' dim='1' vertexData='true' data='four'/>");
  std::string path = "g";
  // The scene is the first element of the depth, array and geometry the last.
  for (std::size_t i = 0; i < ReadingLimits::MAX_DEPTH - 3; ++i) {
    xml = assembly("A", xml, "version='1'");
    path = "A/" + path;
  }
  runOnSmallStack([&] { convert(xml); });
  EXPECT_TRUE(collection(path).find<lum::SurfaceDrawable>());
}

// ---- Geometry ----

TEST_F(ItemTest, GeometrySharesItsArraysWithTheSceneGraph) {
  GeometryItem& item = readItem("polys='quad'", "<array name='p' dim='1' vertexData='true' data='four'/>");
  convert("");
  EXPECT_EQ(conversionFailure(item), "");
  const auto& node = *drawable<lum::SurfaceDrawable>("g").find<lum::PolyDataNode>();
  EXPECT_EQ(node.getPolys(), item.getGeometry()->GetPolys());
  EXPECT_EQ(node.getNodeDataArrays().front(), item.getGeometry()->GetPointData()->GetArray(0));
  EXPECT_EQ(node.getNodeDataArrays().size(), 2U) << "data and normals";
}

TEST_F(ItemTest, InvalidGeometryIsNotConverted) {
  convert("");
  GeometryItem unread("unread");
  EXPECT_EQ(conversionFailure(unread), "");
  EXPECT_TRUE(logHas(takeLog(), "Unrecognized geometry, exiting"));
  EXPECT_EQ(collection("unread").getNodeCount(), 0U);
  unread.setGeometry(nullptr, nullptr, nullptr);
  EXPECT_EQ(conversionFailure(unread), "InternalError: must be not NULL | _polydata");
  unread.setGeometry(readItem("polys='tri'").getGeometry(), nullptr, nullptr);
  EXPECT_EQ(conversionFailure(unread), "");
  EXPECT_TRUE(collection("unread").find<lum::SurfaceDrawable>());
  GeometryItem& emptied = readItem("lines='line'");
  emptied.getGeometry()->SetLines(nullptr);
  EXPECT_EQ(conversionFailure(emptied),
            "InternalError: must be greater than zero | polyData.GetLines()->GetNumberOfCells() > 0");
  std::vector<int> list = {3, 0, 1, 2, 2, 2, 3};
  EXPECT_EQ(GeometryItem::countItemsInList({list.data(), 7}), 2);
}

// ---- Others ----

TEST_F(ItemTest, LegendsMadeInCodeHaveAllThatFilesState) {
  convert("");
  Legend legend("made");
  legend.setOrientation(lum::LegendOrientation::HORIZONTAL);
  legend.setLabelCount(3);
  legend.setNumberFormat("%.1f");
  legend.setTextHeight(0.5);
  for (const int count : {-1, 65}) {
    EXPECT_EQ(failureOf([&] { legend.setLabelCount(count); }).substr(0, 14), "InternalError:") << count;
  }
  EXPECT_EQ(failureOf([&] { legend.setNumberFormat("%s"); }).substr(0, 14), "InternalError:");
  const Colormap colormap;
  _shared.colormap = &colormap;
  EXPECT_EQ(conversionFailure(legend), "");
  const auto& made = drawable<lum::LegendDrawable>("");
  const auto& attributes = *made.findAttributes<lum::LegendAttributes>();
  EXPECT_EQ(attributes.getOrientation(), lum::LegendOrientation::HORIZONTAL);
  EXPECT_EQ(attributes.getNumberOfLabels(), 3);
  EXPECT_EQ(attributes.getLabelFormat(), "%.1f");
  EXPECT_EQ(made.findAttributes<lum::TextAttributes>()->getFontSize(), 0.5);
}

TEST_F(ItemTest, TextsThatAreCopiedAreCutOff) {
  const std::string text(1001, 'x');
  const auto scene =
      read("<assembly name='" + text + "'><colormap name='c' title='" + text + "'/></assembly>");
  EXPECT_EQ(std::ranges::count(_reader->getFindings(), FindingCode::TEXT_CHANGED, &Finding::code), 2);
  const auto& assembly = dynamic_cast<const AssemblyItem&>(*scene->getChildren().at(0));
  EXPECT_EQ(assembly.getActiveColormap()->getTitle(), text.substr(1));
}

/// Very many findings may name an item around theirs.
TEST_F(ItemTest, FindingsShortenNames) {
  const std::string name(1001, 'x');
  convert(
      "<assembly name='" + name + "'><colormap name='" + name +
      "'/><assembly name='i'><colormap name='c'/><legend colormap='c'/><geometry/></assembly></assembly>");
  const auto& findings = _reader->getFindings();
  EXPECT_THAT(findings,
              testing::Contains(testing::Field(&Finding::code, FindingCode::LEGEND_OF_OTHER_COLORS)));
  EXPECT_THAT(findings, testing::Each(testing::Field(&Finding::text, testing::SizeIs(testing::Lt(400U)))));
}

TEST_F(ItemTest, TransformsKeepANodeOfTheirKindAndReplaceAnother) {
  auto& attributes = convert("").getModelCanvas().getDrawableCollection().getBaseAttributes();
  const lum::Ptr<lum::Transform> mirrored = ReflectTransform().makeLumTransform(attributes);
  EXPECT_EQ(ReflectTransform().makeLumTransform(attributes), mirrored.get());
  const lum::Transform* simple = GeometryTransform().makeLumTransform(attributes);
  EXPECT_EQ(simple->className(), "SimpleTransform");
  EXPECT_EQ(attributes.getTransform(), simple);
  EXPECT_EQ(RepeatTransform().makeLumTransform(attributes)->className(), "PeriodicRepeatTransform");

  const std::string message = "InternalError: correct type must be enforced by makeLumTransform function | ";
  EXPECT_EQ(failureOf([&] { GeometryTransform().apply(*mirrored); }), message + "lumSimpleTransform");
  EXPECT_EQ(failureOf([&] { RepeatTransform().apply(*mirrored); }), message + "lumPeriodicRepeatTransform");
  EXPECT_EQ(failureOf([&] { ReflectTransform().apply(*attributes.getTransform()); }),
            message + "lumSymmTransform");
}

TEST_F(ItemTest, AClippingPlaneForMappersFollowsItsElement) {
  ClippingPlane plane;
  vtkPlane* const made = plane.getPlane();
  plane.read(*elementOf("<clip><origin y='2'/></clip>"), nullptr);
  EXPECT_EQ(plane.getPlane(), made);
  EXPECT_EQ(made->GetOrigin()[1], 2.0);
  EXPECT_EQ(made->GetNormal()[2], 1.0);
}

TEST_F(ItemTest, AColormapNamesNoArray) {
  const auto scalars = make<lum::ScalarAttributes>();
  Colormap("c").applyTo(*scalars);
  EXPECT_FALSE(scalars->hasDataArray());
}

}  // namespace

}  // namespace vemo
