// What items give a host that draws them with VTK's actors.

#include "SceneFixture.h"
#include "support/FoundFindings.h"
#include <vemo/import/decorations/CoordinateSystemItem.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/import/items/Colormap.h>

#include <vtkActor.h>
#include <vtkActor2D.h>
#include <vtkAssembly.h>
#include <vtkCoordinate.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkPlaneCollection.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkProperty2D.h>
#include <vtkTextActor.h>
#include <vtkTextProperty.h>

namespace vemo {

namespace {

/// Lets the tests call what is for items alone.
class AnyItem : public GeometryItem {
 public:
  using GeometryItem::GeometryItem;
  using GraphicsItem::setMyOpacity;
};

class DrawingTest : public SceneFixture {};

TEST_F(DrawingTest, VisibilityIsAFactorOfOpacity) {
  AnyItem item("i");
  item.setVisibility(0.5);
  vtkNew<vtkActor> actor;
  item.setMyOpacity(actor, 0.5);
  EXPECT_EQ(actor->GetProperty()->GetOpacity(), 0.25);
  EXPECT_TRUE(actor->GetVisibility() && actor->GetPickable());
  const auto before = actor->GetMTime();
  item.setMyOpacity(actor, 0.002);
  EXPECT_FALSE(actor->GetVisibility() || actor->GetPickable());
  EXPECT_EQ(actor->GetProperty()->GetOpacity(), 0.25) << "stays";
  EXPECT_GT(actor->GetMTime(), before);

  vtkNew<vtkActor2D> flat;
  item.setMyOpacity(flat, flat->GetProperty(), 0.5);
  EXPECT_EQ(flat->GetProperty()->GetOpacity(), 0.25);
  item.setMyOpacity(flat, flat->GetProperty(), 0.002);
  EXPECT_FALSE(flat->GetVisibility());
  EXPECT_TRUE(flat->GetPickable());
}

TEST_F(DrawingTest, OpacityReachesEveryPartOfAnAssembly) {
  AnyItem item("i");
  vtkNew<vtkAssembly> outer;
  vtkNew<vtkAssembly> inner;
  vtkNew<vtkActor> leaf;
  vtkNew<vtkActor> other;
  inner->AddPart(leaf);
  outer->AddPart(inner);
  outer->AddPart(other);
  vtkNew<vtkProperty> property;
  item.setMyOpacity(outer, property, 0.0);
  for (vtkProp* const prop : std::initializer_list<vtkProp*>{outer, inner, leaf, other}) {
    EXPECT_FALSE(prop->GetVisibility() || prop->GetPickable());
  }
  item.setMyOpacity(outer, property, 0.75);
  EXPECT_TRUE(leaf->GetVisibility() && other->GetVisibility() && outer->GetVisibility());
  EXPECT_EQ(property->GetOpacity(), 0.75);
}

TEST_F(DrawingTest, LinesAndPointsHaveTheirOwnOpacity) {
  GeometryItem& lines = readItem("lines='line'");
  lines.setActorOpacity(0.5);
  EXPECT_EQ(lines.getProperty()->GetOpacity(), 64 / 255.0);
  GeometryItem& points = readItem("verts='vert' pointSize='5'");
  points.setActorOpacity(0.5);
  EXPECT_EQ(points.getProperty()->GetPointSize(), 5.0F);
  EXPECT_EQ(points.getProperty()->GetOpacity(), 0.5);
}

TEST_F(DrawingTest, NeedsGeometryOfTheRightType) {
  GeometryItem& edges = readItem("polys='tri' showFaces='false' showEdges='true' smoothShading='false'");
  edges.showEdges(false);
  edges.setActorOpacity(1.0);
  EXPECT_FALSE(edges.getActor()->GetVisibility()) << "there is nothing to see";
  GeometryItem& points = readItem("verts='vert'");
  EXPECT_EQ(failureOf([&] { points.setLineAndPolygonRenderingProperties(); }).substr(0, 89),
            "InternalError: Unexpected item type in GeometryItem::setLineAndPolygonRenderingProperties");
  EXPECT_EQ(failureOf([] { GeometryItem("unread").setActorOpacity(1.0); }).substr(0, 69),
            "InternalError: Unexpected geometry type in GeometryItem::setActorOpac");
}

TEST_F(DrawingTest, MappersAreSetUpAnew) {
  GeometryItem& item = readItem("polys='quad'", "<array name='a' dim='1' data='two'/>");
  vtkPolyDataMapper& mapper = *item.getMapper();
  ClippingPlane plane;
  for (const int count : {1, 0, 1}) {
    item.setIgnoreClip(count == 0);
    item.setClippingPlanes(&mapper, {&plane});
    EXPECT_EQ(mapper.GetClippingPlanes()->GetNumberOfItems(), count);
  }
  const Colormap colormap;
  item.setScalars(&mapper, &colormap);
  for (const auto& [array, isVisible] : {std::pair("a", true), {"absent", false}, {"a", true}}) {
    item.setScalarArray(&mapper, array);
    EXPECT_EQ(mapper.GetScalarVisibility(), isVisible) << array;
  }
  item.setScalars(&mapper, nullptr);
  EXPECT_FALSE(mapper.GetScalarVisibility());
  item.setScalars(&mapper, &colormap);
  EXPECT_TRUE(mapper.GetScalarVisibility());
}

TEST_F(DrawingTest, ColormapsBecomeTables) {
  Colormap colormap;
  const std::string colors = "><c>ff000080</c><c>0000ffff</c><c>00ff00ff</c></colormap>";
  colormap.read(*elementOf("<colormap min='1' max='100' log10='true' ramp='sqrt'" + colors), nullptr);
  const auto table = colormap.makeLookupTable();
  EXPECT_EQ(table->GetRamp(), VTK_RAMP_SQRT);
  EXPECT_EQ(table->MapValue(1)[3], 128);
  EXPECT_EQ(table->MapValue(10)[2], 255) << "in the middle of the logarithms";
  colormap.read(*elementOf("<colormap max='100'" + colors), nullptr);
  EXPECT_EQ(colormap.makeLookupTable()->MapValue(10)[3], 128);
  colormap.read(*elementOf("<colormap min='9' max='0'" + colors), nullptr);
  const FoundFindings found;
  EXPECT_EQ(colormap.makeUsableLookupTable()->MapValue(8)[0], 255);
  EXPECT_EQ(found.codes(), std::vector<std::string>{"colormap-adjusted"});
  colormap.read(*elementOf("<colormap max='100'/>"), nullptr);
  EXPECT_EQ(colormap.makeLookupTable()->GetNumberOfTableValues(), 0);
}

TEST_F(DrawingTest, AxesHaveLabels) {
  AxesItem axes("axes");
  vtkTextActor* const label = axes.getLabel(1);
  EXPECT_STREQ(label->GetInput(), "Y");
  EXPECT_EQ(label->GetPositionCoordinate()->GetCoordinateSystem(), VTK_WORLD);
  EXPECT_EQ(label->GetPositionCoordinate()->GetValue()[1], 1.2);
  EXPECT_STREQ(label->GetTextProperty()->GetFontFamilyAsString(), "Arial");
  axes.setAxes({1, 0, 0}, {0, 0, 2}, {0, 1, 0});
  axes.setTextColor({255, 0, 51, 0});
  EXPECT_EQ(axes.getLabel(1), label);
  EXPECT_EQ(label->GetPositionCoordinate()->GetValue()[2], 2.4);
  EXPECT_EQ(label->GetTextProperty()->GetColor()[2], 0.2);
  EXPECT_EQ(failureOf([&] { axes.getLabel(3); }).substr(0, 40), "InternalError: A triad has three axes | ");
}

}  // namespace

}  // namespace vemo
