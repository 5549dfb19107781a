#include "geometry/drawing/PolygonFans.h"
#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkNew.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

std::vector<vtkIdType> firstPolygon(vtkPolyData& mesh) {
  vtkNew<vtkIdList> points;
  mesh.GetPolys()->GetCellAtId(0, points);
  return {points->begin(), points->end()};
}

TEST(PolygonFansTest, BeginWhereTheyDoNotFold) {
  using Corners = std::vector<vtkIdType>;
  // An arrow head whose notch is point 2, an L, and a comb.
  const auto points = flat({0, 0, 4, 0, 1, 1, 0, 4, 2, 1, 2, 2, 0, 2, 4, 1, 4, 4, 3, 4, 3, 2, 1, 2, 1, 4});
  const struct {
    Corners polygon;
    Corners drawn;
    vtkIdType folded;
  } cases[] = {
      {{0, 1, 2, 3}, {0, 1, 2, 3}, 0},
      {{1, 2, 3, 0}, {2, 3, 0, 1}, 0},
      {{3, 2, 1, 0}, {2, 1, 0, 3}, 0},
      // 4 is at (2, 1), 5 at (2, 2), 6 at (0, 2), 7 at (4, 1).
      {{1, 7, 4, 5, 6, 0}, {4, 5, 6, 0, 1, 7}, 0},
      {{0, 1, 8, 9, 10, 11, 12, 3}, {0, 1, 8, 9, 10, 11, 12, 3}, 1},
      {{0, 8, 3, 1}, {0, 8, 3, 1}, 1},
      {{0, 1, 8}, {0, 1, 8}, 0},
  };
  for (const auto& [polygon, drawn, folded] : cases) {
    // Beside it, so that not all are triangles, a convex one.
    auto mesh = makePolyData(points, {.polys = {polygon, {0, 1, 8, 3}}});
    auto* const given = mesh.Get();
    EXPECT_EQ(unfoldFans(mesh), folded);
    EXPECT_EQ(firstPolygon(*mesh), drawn) << testing::PrintToString(polygon);
    EXPECT_EQ(mesh == given, drawn == polygon) << "copied without need";
  }
}

}  // namespace

}  // namespace vemo
