#include "support/Meshes.h"
#include "support/Nodes.h"
#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkPointData.h>
#include <vtkPoints.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

TEST(PolyDataNodeTest, SharesArraysAndHandsOutWhatItWasGiven) {
  const auto given = makePolyData({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {.polys = {{0, 1, 2}}});
  const auto pressure = makeArray("pressure", {1, 2, 3});
  given->GetPointData()->AddArray(pressure);

  const auto node = make<lum::PolyDataNode>();
  node->setPolyData(given);
  const auto replacement = makeArray("pressure", {4, 5, 6});
  node->setNodeDataArray(pressure);
  node->setNodeDataArray(replacement);
  const auto normals = makeArray("Normals", {0, 0, 1}, 3);
  node->setCellDataArray(normals);

  const auto taken = node->getPolyData();
  EXPECT_EQ(taken->GetPoints()->GetData(), given->GetPoints()->GetData());
  EXPECT_EQ(taken->GetPolys(), given->GetPolys());
  EXPECT_EQ(node->getVerts(), nullptr);
  EXPECT_EQ(taken->GetPointData()->GetNumberOfArrays(), 1);
  EXPECT_EQ(taken->GetPointData()->GetArray("pressure"), replacement.Get());
  EXPECT_EQ(taken->GetCellData()->GetNormals(), normals.Get());
  EXPECT_EQ(given->GetPointData()->GetArray("pressure"), pressure.Get())
      << "the poly data given is not changed";
  EXPECT_EQ(given->GetCellData()->GetNumberOfArrays(), 0);
}

TEST(PolyDataNodeTest, RefusesWhatItDoesNotKnow) {
  const auto node = make<lum::PolyDataNode>();
  EXPECT_THROW(node->setAttachmentPoint({1.0, 2.0, 3.0}, 1), InternalError);
  EXPECT_THROW(node->setPolyData(nullptr), InternalError);
  EXPECT_THROW(node->setCellDataArray(nullptr), InternalError);
  node->setAttachmentPoint({1.0, 2.0, 3.0}, 0);
  EXPECT_EQ(node->getAttachmentPoint(), (Vector3{1.0, 2.0, 3.0}));
  EXPECT_EQ(node->getPolyData()->GetNumberOfPoints(), 0);
}

}  // namespace

}  // namespace vemo
