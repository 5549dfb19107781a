#include "geometry/drawing/PolygonFans.h"
#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkNew.h>

#include <cmath>
#include <gmock/gmock.h>
#include <numeric>

namespace vemo {

namespace {

using Corners = std::vector<vtkIdType>;

Corners firstPolygon(vtkPolyData& mesh) {
  vtkNew<vtkIdList> points;
  mesh.GetPolys()->GetCellAtId(0, points);
  return {points->begin(), points->end()};
}

TEST(PolygonFansTest, BeginWhereTheyDoNotFold) {
  // An arrow head whose notch is point 2, an L, and a comb.
  const auto points = flat({0, 0, 4, 0, 1, 1, 0, 4, 2, 1, 2, 2, 0, 2, 4, 1, 4, 4, 3, 4, 3, 2, 1, 2, 1, 4});
  const struct {
    Corners polygon;
    Corners drawn;
    std::size_t folded;
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
    EXPECT_EQ(unfoldFans(mesh).size(), folded);
    EXPECT_EQ(firstPolygon(*mesh), drawn) << testing::PrintToString(polygon);
    EXPECT_EQ(mesh == given, drawn == polygon) << "copied without need";
  }
}

TEST(PolygonFansTest, LeaveNarrowSlotsOpen) {
  // A slot as narrow as some steps of its coordinates, whose one side points to the first corner.
  auto mesh = makePolyData(flat({0, 0, 1, 0, 1, 0.5F, 0.5F, 0.249999F, 1, 0.500002F, 0, 1}),
                           {.polys = {{0, 1, 2, 3, 4, 5}}});
  EXPECT_TRUE(unfoldFans(mesh).empty());
  EXPECT_EQ(firstPolygon(*mesh).front(), 3);
}

/// Rays of different lengths around their middle, which is the last corner: none of the others is the
/// begin of a fan that does not fold.
TEST(PolygonFansTest, BeginAtOneOfTheFirstCorners) {
  for (const int rays : {80, 120}) {
    std::vector<std::array<float, 3>> points;
    for (int i = 0; i < rays; ++i) {
      const float angle = 3.0F * static_cast<float>(i) / static_cast<float>(rays);
      const float length = i % 2 == 0 ? 2.0F : 1.0F;
      points.push_back({length * std::cos(angle), length * std::sin(angle), 0});
    }
    points.push_back({0, 0, 0});
    std::vector<vtkIdType> corners(points.size());
    std::iota(corners.begin(), corners.end(), 0);
    auto mesh = makePolyData(points, {.polys = {corners}});
    EXPECT_EQ(unfoldFans(mesh).size(), rays > 100 ? 1U : 0U);
  }
}

}  // namespace

}  // namespace vemo
