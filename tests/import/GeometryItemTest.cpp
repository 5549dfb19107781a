// What becomes of geometry is in tests/data/expected/conversion/geometry.txt.

#include "SceneFixture.h"
#include <vemo/import/SharedBySiblings.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

#include <vtkCellArray.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

namespace vemo {

namespace {

class GeometryItemTest : public SceneFixture {};

TEST_F(GeometryItemTest, CountsTheCellsOfAList) {
  std::vector<int> list = {3, 0, 1, 2, 2, 2, 3};
  EXPECT_EQ(GeometryItem::countItemsInList({list.data(), 7}), 2);
  EXPECT_EQ(GeometryItem::countItemsInList({nullptr, 0}), 0);
}

TEST_F(GeometryItemTest, TheCenterIsVtksOwn) {
  _archive.floats("far", {0.1F, 0.2F, 0.3F, 7, 9, 1e-3F, 3, -4, 0, 100, 100, 100});
  GeometryItem& item = readItem("points='far' polys='tri'");
  Vector<3, double> center;
  item.getGeometry()->GetCenter(center.data());
  convert(geometry("points='far' polys='tri'"));
  EXPECT_EQ(drawable<lum::SurfaceDrawable>("g").find<lum::PolyDataNode>()->getAttachmentPoint(), center);
}

TEST_F(GeometryItemTest, ArraysAreSharedWithTheSceneGraph) {
  GeometryItem& item = readItem("polys='quad'", "<array name='p' dim='1' vertexData='true' data='four'/>");
  convert("");
  SharedBySiblings shared;
  item.addToCollection(shared, collection(""), 1, "top");
  const auto& node = *drawable<lum::SurfaceDrawable>("g").find<lum::PolyDataNode>();
  EXPECT_EQ(node.getPolys(), item.getGeometry()->GetPolys());
  EXPECT_EQ(node.getNodeDataArrays().front(), item.getGeometry()->GetPointData()->GetArray(0));
  EXPECT_EQ(node.getNodeDataArrays().size(), 2U) << "data and normals";
}

TEST_F(GeometryItemTest, RefusesToConvertWhatIsNoGeometry) {
  convert("");
  SharedBySiblings shared;
  const auto conversion = [&](GeometryItem& item) {
    return failureOf([&] { item.addToCollection(shared, collection(""), 1, ""); });
  };
  GeometryItem unread("unread");
  EXPECT_EQ(conversion(unread), "");
  EXPECT_TRUE(logHas(takeLog(), "Unrecognized geometry, exiting"));
  EXPECT_EQ(collection("unread").getNodeCount(), 0U);
  unread.setGeometry(nullptr, nullptr, nullptr);
  EXPECT_EQ(conversion(unread), "InternalError: must be not NULL | _polydata");
  unread.setGeometry(readItem("polys='tri'").getGeometry(), nullptr, nullptr);
  EXPECT_EQ(conversion(unread), "");
  EXPECT_TRUE(collection("unread").find<lum::SurfaceDrawable>());
  GeometryItem& emptied = readItem("lines='line'");
  emptied.getGeometry()->SetLines(nullptr);
  EXPECT_EQ(conversion(emptied),
            "InternalError: must be greater than zero | _polydata->GetLines()->GetNumberOfCells() > 0");
}

}  // namespace

}  // namespace vemo
