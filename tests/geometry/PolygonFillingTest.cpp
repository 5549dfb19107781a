#include "geometry/drawing/EarClipping.h"
#include "geometry/drawing/PolygonFilling.h"
#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkNew.h>

#include <cmath>
#include <gmock/gmock.h>
#include <numbers>

namespace vemo {

namespace {

using Polygon = std::vector<Vector<2, double>>;

double areaOf(const Polygon& polygon) {
  double area = 0.0;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const auto& a = polygon[i];
    const auto& b = polygon[(i + 1) % polygon.size()];
    area += 0.5 * (a[0] * b[1] - a[1] * b[0]);
  }
  return area;
}

/// Whether all triangles are counter-clockwise, and as large as the polygon: then they cover it once.
void expectCover(const Polygon& polygon, const std::vector<Triangle>& triangles) {
  double area = 0.0;
  for (const Triangle& triangle : triangles) {
    const double part = areaOf({polygon[triangle[0]], polygon[triangle[1]], polygon[triangle[2]]});
    EXPECT_GT(part, 0.0);
    area += part;
  }
  EXPECT_NEAR(area, areaOf(polygon), 1e-9 * area);
}

Polygon star(int corners, double inner) {
  Polygon polygon;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2.0 * std::numbers::pi * i / corners;
    const double radius = i % 2 == 0 ? 1.0 : inner;
    polygon.push_back({radius * std::cos(angle), radius * std::sin(angle)});
  }
  return polygon;
}

/// A band that winds around its middle.
Polygon spiral(int corners) {
  Polygon polygon;
  for (int i = 0; i < corners; ++i) {
    const bool isOuter = i < corners / 2;
    const double along = static_cast<double>(isOuter ? i : corners - 1 - i) / corners;
    const double radius = 0.05 + along + (isOuter ? 0.02 : 0.0);
    polygon.push_back({radius * std::cos(60.0 * along), radius * std::sin(60.0 * along)});
  }
  return polygon;
}

/// Teeth as high as it is.
Polygon comb(int teeth) {
  Polygon polygon{{0, 0}, {2.0 * teeth, 0}};
  for (int i = 2 * teeth; i >= 0; --i) {
    polygon.push_back({static_cast<double>(i), i % 2 == 0 ? 10.0 : 1.0});
  }
  return polygon;
}

/// A comb whose teeth are in a small part of what it surrounds.
Polygon combWithFarCorners(int teeth) {
  Polygon polygon{{0, -1}, {1, -1}};
  for (int i = 2 * teeth; i >= 0; --i) {
    polygon.push_back({1e-9 * i, i % 2 == 0 ? 1e-6 : 0.0});
  }
  return polygon;
}

/// Teeth that lean far to one side: each is as long as all of them are wide.
Polygon slantedComb(int teeth) {
  Polygon polygon{{0, -1}, {2.0 * teeth, -1}};
  for (int i = 2 * teeth; i >= 0; --i) {
    polygon.push_back({i + (i % 2 == 1 ? 2.0 * teeth : 0.0), i % 2 == 1 ? 2.0 * teeth : 0.0});
  }
  return polygon;
}

Polygon scaled(Polygon polygon, double x, double y) {
  for (auto& corner : polygon) {
    corner = {x * corner[0], y * corner[1]};
  }
  return polygon;
}

TEST(EarClippingTest, CoversWhatAPolygonSurrounds) {
  const Polygon polygons[] = {
      {{0, 0}, {1, 0}, {0, 1}},
      {{0, 0}, {1, 0}, {2, 0}, {2, 2}, {1, 2}, {0, 2}},  // corners on straight borders
      {{0, 0}, {0, 0}, {3, 0}, {3, 3}, {3, 3}, {0, 3}},  // corners twice
      {{0, 0}, {4, 0}, {4, 4}, {3, 4}, {3, 1}, {2, 1}, {2, 4}, {1, 4}, {1, 1}, {0, 1}},
      // A square with a hole, to which a line leads there and back.
      {{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}, {3, 3}, {3, 6}, {6, 6}, {6, 3}, {3, 3}},
      star(1000, 0.3),
      star(1000, 0.999),
      spiral(1000),
      comb(500),
      scaled(comb(500), 1e-310, 1e200),
  };
  for (const Polygon& polygon : polygons) {
    const auto triangles = clipEars(polygon);
    ASSERT_TRUE(triangles) << polygon.size();
    expectCover(polygon, *triangles);
  }
}

/// Looking at all corners for each ear would take too many steps.
TEST(EarClippingTest, TakesNoTimeOutOfProportion) {
  for (const Polygon& polygon : {star(20000, 0.3), star(20000, 0.001), spiral(20000), comb(10000),
                                 combWithFarCorners(10000), slantedComb(20000)}) {
    const auto triangles = clipEars(polygon);
    ASSERT_TRUE(triangles);
    EXPECT_EQ(triangles->size(), polygon.size() - 2);
  }
}

TEST(EarClippingTest, DoesNotCoverWhatCrossesItself) {
  EXPECT_FALSE(clipEars({{0, 0}, {2, 2}, {2, 0}, {0, 1}}));
  EXPECT_FALSE(clipEars({{0, 0}, {1, 0}, {2, 0}, {3, 0}}));
  EXPECT_FALSE(clipEars({{1, 0}, {-0.8, 0.6}, {0.3, -0.95}, {0.3, 0.95}, {-0.8, -0.6}}));
}

/// Polygons with values, seen from below, in a plane that is not a coordinate plane.
TEST(PolygonFillingTest, ReplacesPolygonsByTriangles) {
  const std::vector<std::array<float, 3>> points{{0, 0, 0}, {0, 4, 4}, {4, 4, 4}, {4, 3, 3},
                                                 {2, 3, 3}, {2, 1, 1}, {4, 1, 1}, {4, 0, 0}};
  const auto mesh =
      makePolyData(points, {.lines = {{0, 1}}, .polys = {{0, 1, 2}, {0, 1, 2, 3, 4, 5, 6, 7}, {0, 2, 1, 7}}});
  mesh->GetCellData()->AddArray(makeArray("values", {4, 40, 5, 50, 6, 60, 7, 70}, 2));
  mesh->GetCellData()->AddArray(makeArray("others", {0, 0, 0, 0}));
  mesh->GetCellData()->SetNormals(makeArray("Normals", {0, 0, 0, 0, 0, 1, 0, 0, 2, 0, 0, 3}, 3));
  const PolygonFilling filling = fillPolygons(*mesh, {1, 2}, "values");
  EXPECT_EQ(filling.failures, 1);
  ASSERT_NE(filling.geometry, nullptr);
  // The last one crosses itself.
  ASSERT_EQ(filling.geometry->GetNumberOfPolys(), 1 + 6 + 2);
  // What is drawn of the data: other components, and other arrays, may be any number.
  vtkCellData& data = *filling.geometry->GetCellData();
  EXPECT_EQ(data.GetNumberOfArrays(), 2);
  vtkDataArray& filled = *data.GetArray("values");
  ASSERT_EQ(filled.GetNumberOfTuples(), 10);
  EXPECT_EQ(filled.GetNumberOfComponents(), 1);
  ASSERT_NE(data.GetNormals(), nullptr);
  for (vtkIdType i = 0; i < 9; ++i) {
    EXPECT_EQ(filled.GetComponent(i + 1, 0), i == 0 ? 5 : i < 7 ? 6 : 7);
    EXPECT_EQ(data.GetNormals()->GetComponent(i + 1, 2), i == 0 ? 1 : i < 7 ? 2 : 3);
    // As the polygon itself.
    vtkNew<vtkIdList> corners;
    filling.geometry->GetPolys()->GetCellAtId(i, corners);
    const auto at = [&](vtkIdType corner) {
      return points[static_cast<std::size_t>(corners->GetId(corner))];
    };
    const auto [a, b, c] = std::array{at(0), at(1), at(2)};
    EXPECT_TRUE(i >= 7 || (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]) < 0.0F);
  }
  EXPECT_EQ(fillPolygons(*mesh, {}, nullptr).geometry, nullptr);
  // They colour what they also light.
  EXPECT_EQ(fillPolygons(*mesh, {1, 2}, "Normals").geometry->GetCellData()->GetNumberOfArrays(), 1);
}

}  // namespace

}  // namespace vemo
