#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/NodeInitializer.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

vtkSmartPointer<vtkFloatArray> makeArray(const char* name, int components, vtkIdType tuples) {
  auto array = vtkSmartPointer<vtkFloatArray>::New();
  array->SetName(name);
  array->SetNumberOfComponents(components);
  array->SetNumberOfTuples(tuples);
  array->Fill(1.0);
  return array;
}

TEST(PolyDataNodeTest, SharesArraysAndHandsOutWhatItWasGiven) {
  vtkNew<vtkPolyData> given;
  vtkNew<vtkPoints> points;
  points->SetData(makeArray("Points", 3, 3));
  given->SetPoints(points);
  vtkNew<vtkCellArray> polys;
  polys->InsertNextCell({0, 1, 2});
  given->SetPolys(polys);
  const auto pressure = makeArray("pressure", 1, 3);
  given->GetPointData()->AddArray(pressure);

  const lum::Ptr<lum::PolyDataNode> node(
      new lum::PolyDataNode(lum::ClassNameNodeInitializer(lum::PolyDataNode::getClassName())));
  node->setPolyData(given);
  const auto replacement = makeArray("pressure", 1, 3);
  node->setNodeDataArray(pressure);
  node->setNodeDataArray(replacement);
  const auto normals = makeArray("Normals", 3, 1);
  node->setCellDataArray(normals);

  const auto taken = node->getPolyData();
  EXPECT_EQ(taken->GetPoints()->GetData(), points->GetData());
  EXPECT_EQ(taken->GetPolys(), polys.Get());
  EXPECT_EQ(node->getVerts(), nullptr);
  EXPECT_EQ(taken->GetPointData()->GetNumberOfArrays(), 1);
  EXPECT_EQ(taken->GetPointData()->GetArray("pressure"), replacement.Get());
  EXPECT_EQ(taken->GetCellData()->GetNormals(), normals.Get());
  EXPECT_EQ(given->GetPointData()->GetArray("pressure"), pressure.Get())
      << "the poly data given is not changed";
  EXPECT_EQ(given->GetCellData()->GetNumberOfArrays(), 0);
}

TEST(PolyDataNodeTest, RefusesWhatItDoesNotKnow) {
  const lum::Ptr<lum::PolyDataNode> node(
      new lum::PolyDataNode(lum::ClassNameNodeInitializer(lum::PolyDataNode::getClassName())));
  EXPECT_THROW(node->setAttachmentPoint({1.0, 2.0, 3.0}, 1), InternalError);
  EXPECT_THROW(node->setPolyData(nullptr), InternalError);
  EXPECT_THROW(node->setCellDataArray(nullptr), InternalError);
  node->setAttachmentPoint({1.0, 2.0, 3.0}, 0);
  EXPECT_EQ(node->getAttachmentPoint(), (Vector<3, double>{1.0, 2.0, 3.0}));
  EXPECT_EQ(node->getPolyData()->GetNumberOfPoints(), 0);
}

}  // namespace

}  // namespace vemo
