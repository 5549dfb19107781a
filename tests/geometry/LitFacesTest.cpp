#include "geometry/Normals.h"
#include "geometry/drawing/LitFaces.h"
#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

using Corners = std::vector<vtkIdType>;

Corners polygon(vtkPolyData& mesh, vtkIdType number) {
  vtkNew<vtkIdList> points;
  mesh.GetPolys()->GetCellAtId(number, points);
  return {points->begin(), points->end()};
}

TEST(LitFacesTest, AreWoundAsTheirNormalsSay) {
  // Two squares side by side, and a point of its own.
  const auto points = flat({0, 0, 1, 0, 2, 0, 0, 1, 1, 1, 2, 1, 9, 9});
  const Corners left{0, 1, 4, 3};
  const Corners leftReversed{3, 4, 1, 0};
  const Corners right{1, 2, 5, 4};
  const Corners rightReversed{4, 5, 2, 1};
  const struct {
    Cells::List given;
    Cells::List drawn;
  } cases[] = {
      {{left, right}, {left, right}},
      {{leftReversed, rightReversed}, {leftReversed, rightReversed}},
      {{left, rightReversed}, {left, right}},
      {{left, leftReversed}, {left, left}},
  };
  for (const auto& [given, drawn] : cases) {
    auto mesh = makePolyData(points, {.polys = given});
    mesh->GetPointData()->SetNormals(pointNormals(*mesh));
    const vtkSmartPointer<vtkPolyData> before = mesh;
    lightBothSides(mesh);
    EXPECT_EQ(mesh == before, given == drawn) << "copied without need";
    EXPECT_EQ((Cells::List{polygon(*mesh, 0), polygon(*mesh, 1)}), drawn);
    EXPECT_EQ(std::abs(mesh->GetPointData()->GetNormals()->GetComponent(0, 2)), 1.0);
    EXPECT_EQ(polygon(*before, 1), given[1]) << "the scene's own cells changed";
  }
}

}  // namespace

}  // namespace vemo
