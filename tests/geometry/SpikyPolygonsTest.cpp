#include "geometry/Normals.h"
#include "geometry/drawing/ContourEdges.h"
#include "geometry/drawing/SpikyPolygons.h"
#include "support/Meshes.h"
#include <vemo/base/Vector.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkPointData.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

Vector3 normalAt(vtkDataArray& normals, vtkIdType place) {
  return toVector(normals.GetTuple3(place));
}

const Vector3 UP = normalized(Vector3{-0.7, 0.3, 1.0});

TEST(SpikyPolygonsTest, HaveTheNormalsOfTheirAreasAtPoints) {
  auto mesh = makeStarInPlate();
  const auto written = pointNormals(*mesh);
  EXPECT_LT(dot(normalAt(*written, 1), UP), 0.999) << "nothing to correct";
  mesh->GetPointData()->SetNormals(written);
  correctSpikyPolygons(mesh);
  for (vtkIdType point = 0; point < mesh->GetNumberOfPoints(); ++point) {
    EXPECT_NEAR(dot(normalAt(*mesh->GetPointData()->GetNormals(), point), UP), 1.0, 1e-5) << point;
  }
  EXPECT_NE(mesh->GetPointData()->GetNormals(), written.Get()) << "the scene's own normals changed";
}

TEST(SpikyPolygonsTest, HaveTheNormalsOfTheirAreasAtCells) {
  auto mesh = makeStarInPlate();
  mesh->GetCellData()->SetNormals(cellNormals(*mesh));
  EXPECT_NEAR(dot(normalAt(*mesh->GetCellData()->GetNormals(), 1), UP), -1.0, 1e-5) << "nothing to correct";
  correctSpikyPolygons(mesh);
  EXPECT_EQ(normalAt(*mesh->GetCellData()->GetNormals(), 0), (Vector3{1, 0, 0})) << "of the vertex";
  for (vtkIdType cell = 1; cell < mesh->GetNumberOfCells(); ++cell) {
    EXPECT_NEAR(dot(normalAt(*mesh->GetCellData()->GetNormals(), cell), UP), 1.0, 1e-5) << cell;
  }
}

TEST(SpikyPolygonsTest, KeepNormalsThatAreNotComputed) {
  auto mesh = makeStarInPlate();
  mesh->GetPointData()->SetNormals(makeArray("Normals", std::vector<float>(30, 0.6F), 3));
  correctSpikyPolygons(mesh);
  EXPECT_EQ(normalAt(*mesh->GetPointData()->GetNormals(), 1)[0], 0.6F);

  auto triangles = makeStarInPlate();
  triangles->GetPolys()->Initialize();
  triangles->GetPointData()->SetNormals(pointNormals(*triangles));
  const auto* const given = triangles.Get();
  correctSpikyPolygons(triangles);
  EXPECT_EQ(triangles.Get(), given) << "copied without need";
}

TEST(SpikyPolygonsTest, HaveNoContourWithinAPlane) {
  EXPECT_EQ(contourEdges(*makeStarInPlate(), CONTOUR_BEND_DEGREES)->GetNumberOfLines(), 5);
}

}  // namespace

}  // namespace vemo
