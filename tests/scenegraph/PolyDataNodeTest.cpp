#include "geometry/AskedArray.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>

#include <cstddef>
#include <gtest/gtest.h>

namespace vemo {

namespace {

/// In how many questions for names a node takes over and hands out so many arrays.
int questionsOf(int count) {
  vtkNew<vtkPolyData> given;
  const auto arrays = makeAskedArrays(count, 0);
  for (const auto& array : arrays) {
    given->GetPointData()->AddArray(array);
  }
  AskedArray::questions = 0;
  const auto node = make<lum::PolyDataNode>();
  node->setPolyData(given);
  const auto taken = node->getPolyData();
  const int questions = AskedArray::questions;
  EXPECT_EQ(taken->GetPointData()->GetNumberOfArrays(), count);
  for (int i = 0; i < taken->GetPointData()->GetNumberOfArrays(); ++i) {
    EXPECT_EQ(taken->GetPointData()->GetArray(i), arrays[static_cast<std::size_t>(i)]);
  }
  return questions;
}

/// In how many it is given so many of them one by one.
int questionsOfSetting(int count) {
  const auto arrays = makeAskedArrays(count, 0);
  AskedArray::questions = 0;
  const auto node = make<lum::PolyDataNode>();
  for (const auto& array : arrays) {
    node->setCellDataArray(array);
  }
  return AskedArray::questions;
}

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

TEST(PolyDataNodeTest, AsksForNamesInProportionToItsArrays) {
  constexpr int COUNT = 50;
  EXPECT_LE(questionsOf(2 * COUNT), 2 * questionsOf(COUNT) + COUNT);
  EXPECT_LE(questionsOfSetting(2 * COUNT), 2 * questionsOfSetting(COUNT) + COUNT);
}

TEST(PolyDataNodeTest, SetsArraysAlsoAmongThoseOfAnotherPolyData) {
  const auto node = make<lum::PolyDataNode>();
  node->setNodeDataArray(makeArray("a", {1}));
  node->setNodeDataArray(makeArray("b", {2}));
  vtkNew<vtkPolyData> given;
  const auto kept = makeArray("c", {3});
  given->GetPointData()->AddArray(kept);
  given->GetPointData()->AddArray(makeArray("a", {4}));
  node->setPolyData(given);
  const auto latest = makeArray("a", {5});
  node->setNodeDataArray(latest);
  const auto& arrays = node->getNodeDataArrays();
  ASSERT_EQ(arrays.size(), 2U);
  EXPECT_EQ(arrays[0].Get(), kept.Get());
  EXPECT_EQ(arrays[1].Get(), latest.Get());
}

TEST(PolyDataNodeTest, TakesTheLatestArrayOfAName) {
  vtkNew<vtkPolyData> given;
  const auto first = makeArray("a", {1});
  const auto other = makeArray("b", {2});
  const auto latest = makeArray("c", {3});
  for (const auto& array : {first, other, latest}) {
    given->GetCellData()->AddArray(array);
  }
  latest->SetName("a");
  const auto node = make<lum::PolyDataNode>();
  node->setPolyData(given);
  const auto taken = node->getPolyData();
  ASSERT_EQ(taken->GetCellData()->GetNumberOfArrays(), 2);
  EXPECT_EQ(taken->GetCellData()->GetArray(0), latest.Get());
  EXPECT_EQ(taken->GetCellData()->GetArray(1), other.Get());
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
