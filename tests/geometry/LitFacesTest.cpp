#include "geometry/Normals.h"
#include "geometry/drawing/LitFaces.h"
#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>

#include <gmock/gmock.h>
#include <limits>
#include <vector>

namespace vemo {

namespace {

using Corners = std::vector<vtkIdType>;

Corners corners(vtkCellArray& cells, vtkIdType number) {
  vtkNew<vtkIdList> points;
  cells.GetCellAtId(number, points);
  return {points->begin(), points->end()};
}

TEST(LitFacesTest, AreWoundAsTheirNormalsSay) {
  // A square, a polygon beside it that is concave at the point 5, and a point of its own.
  const auto points = flat({0, 0, 1, 0, 2, 0, 0, 1, 1, 1, 1.2F, 0.2F, 9, 9});
  const Corners left{0, 1, 4, 3};
  const Corners leftReversed{3, 4, 1, 0};
  const Corners right{5, 4, 1, 2};
  const Corners rightReversed{5, 2, 1, 4};
  const struct {
    Cells::List given;
    Cells::List drawn;
  } cases[] = {
      {{left, right}, {left, right}},
      {{leftReversed, rightReversed}, {leftReversed, rightReversed}},
      {{left, rightReversed}, {left, right}},
      {{left, leftReversed}, {left, {3, 0, 1, 4}}},
  };
  for (const auto& [given, drawn] : cases) {
    auto mesh = makePolyData(points, {.polys = given});
    mesh->GetPointData()->SetNormals(pointNormals(*mesh));
    const vtkSmartPointer<vtkPolyData> before = mesh;
    lightBothSides(mesh);
    EXPECT_EQ(mesh == before, given == drawn) << "copied without need";
    EXPECT_EQ((Cells::List{corners(*mesh->GetPolys(), 0), corners(*mesh->GetPolys(), 1)}), drawn);
    EXPECT_EQ(std::abs(mesh->GetPointData()->GetNormals()->GetComponent(0, 2)), 1.0);
    EXPECT_EQ(corners(*before->GetPolys(), 1), given[1]) << "the scene's own cells changed";
  }
}

TEST(LitFacesTest, HaveTheNormalOfATriangleIfTheirPartsCancelEachOther) {
  auto mesh = makePolyData(flat({0, 0, 1, 1, 1, 0, 0, 1}), {.polys = {{0, 1, 2, 3}}});
  mesh->GetPointData()->SetNormals(pointNormals(*mesh));
  ASSERT_EQ(mesh->GetPointData()->GetNormals()->GetComponent(0, 2), 0.0);
  lightBothSides(mesh);
  for (vtkIdType point = 0; point < 4; ++point) {
    EXPECT_EQ(std::abs(mesh->GetPointData()->GetNormals()->GetComponent(point, 2)), 1.0);
  }
}

TEST(LitFacesTest, HaveNormalsThatCanLight) {
  constexpr float NONE = std::numeric_limits<float>::quiet_NaN();
  constexpr float ENDLESS = std::numeric_limits<float>::infinity();
  const auto square = flat({0, 0, 1, 0, 1, 1, 0, 1});
  auto mesh = makePolyData(square, {.polys = {{0, 1, 2, 3}}});
  mesh->GetPointData()->SetNormals(
      makeArray("Normals", {NONE, 0, 1, 0, 1e22F, 0, 1e-22F, 0, 0, 0, 0, -ENDLESS}, 3));
  auto ofCell = makePolyData(square, {.polys = {{0, 1, 2, 3}}});
  ofCell->GetCellData()->SetNormals(makeArray("Normals", {0, ENDLESS, NONE}, 3));
  lightBothSides(mesh);
  lightBothSides(ofCell);
  const auto values = [](vtkDataArray* normals) {
    const float* const first = vtkFloatArray::SafeDownCast(normals)->GetPointer(0);
    return std::vector<float>(first, first + normals->GetNumberOfValues());
  };
  EXPECT_THAT(values(mesh->GetPointData()->GetNormals()),
              testing::ElementsAre(0, 0, 1, 0, 1, 0, 1, 0, 0, 0, 0, 1));
  EXPECT_THAT(values(ofCell->GetCellData()->GetNormals()), testing::ElementsAre(0, 0, 1));
}

TEST(LitFacesTest, HaveNormalsOfCellsThatAgreeWithTheWinding) {
  // A vertex, a spiky star, and two of its triangles.
  const auto points = flat({0, 5, 1, 1, 5, 0, 1, -1, 0, -5, -1, -1, -5, 0, -1, 1});
  auto mesh =
      makePolyData(points, {.verts = {{0}}, .polys = {{0, 1, 2, 3, 4, 5, 6, 7}, {0, 7, 6}, {0, 1, 2}}});
  mesh->GetCellData()->SetNormals(makeArray("Normals", {0, 0, 9, 0, 0, 1, 0, 0, 1, 0, 0, 0}, 3));
  const vtkSmartPointer<vtkPolyData> before = mesh;
  lightBothSides(mesh);
  const auto zOf = [](vtkPolyData& faces, vtkIdType cell) {
    return faces.GetCellData()->GetNormals()->GetComponent(cell, 2);
  };
  EXPECT_EQ(zOf(*mesh, 0), 9) << "of the vertex";
  EXPECT_EQ(zOf(*mesh, 1), -1) << "clockwise, with reflex corners";
  EXPECT_EQ(zOf(*mesh, 2), -1) << "clockwise";
  EXPECT_EQ(zOf(*mesh, 3), 1) << "instead of zero";
  EXPECT_EQ(zOf(*before, 1), 1) << "the scene's own normals changed";
}

TEST(LitFacesTest, ReversesStripsThatContradictTheirNormals) {
  auto mesh = makePolyData(flat({0, 0, 1, 0, 2, 0, 0, 1, 1, 1, 2, 1}),
                           {.polys = {{0, 1, 4, 3}}, .strips = {{4, 5, 1, 2}, {1, 2, 4, 5}, {5, 2, 4}}});
  mesh->GetPointData()->SetNormals(makeArray("Normals", std::vector<float>(18, 1.0F), 3));
  lightBothSides(mesh);
  vtkCellArray& strips = *mesh->GetStrips();
  EXPECT_EQ((Cells::List{corners(strips, 0), corners(strips, 1), corners(strips, 2)}),
            (Cells::List{{4, 4, 5, 1, 2}, {1, 2, 4, 5}, {5, 5, 2, 4}}));
}

}  // namespace

}  // namespace vemo
