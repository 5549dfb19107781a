#include "geometry/drawing/ContourEdges.h"
#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkCleanPolyData.h>
#include <vtkFeatureEdges.h>
#include <vtkNew.h>
#include <vtkTriangleFilter.h>

#include <gmock/gmock.h>
#include <random>
#include <set>

namespace vemo {

namespace {

using Point = std::array<double, 3>;
using Lines = std::multiset<std::set<Point>>;

constexpr double BEND = 30.0;

/// Each by its ends.
Lines linesOf(vtkPolyData& mesh) {
  Lines result;
  for (vtkIdType cell = 0; cell < mesh.GetNumberOfLines(); ++cell) {
    vtkNew<vtkIdList> ends;
    mesh.GetLines()->GetCellAtId(cell, ends);
    std::set<Point> line;
    for (const vtkIdType end : {ends->GetId(0), ends->GetId(1)}) {
      Point point;
      mesh.GetPoint(end, point.data());
      line.insert(point);
    }
    result.insert(line);
  }
  return result;
}

Lines linesOfFilters(vtkPolyData& mesh) {
  vtkNew<vtkTriangleFilter> triangles;
  triangles->SetInputData(&mesh);
  vtkNew<vtkCleanPolyData> cleaned;
  cleaned->SetInputConnection(triangles->GetOutputPort());
  cleaned->SetTolerance(0.0);
  vtkNew<vtkFeatureEdges> edges;
  edges->SetInputConnection(cleaned->GetOutputPort());
  edges->SetFeatureAngle(BEND);
  edges->NonManifoldEdgesOff();
  edges->Update();
  return linesOf(*edges->GetOutput());
}

TEST(ContourEdgesTest, AreThoseOfTheFilters) {
  // Hills over a grid, with twofold points, gaps, strips, and triangles that
  // have no area or stand on the edges of others.
  std::mt19937 engine(3);
  std::uniform_real_distribution<float> height(-0.4F, 0.4F);
  constexpr vtkIdType WIDTH = 12;
  std::vector<std::array<float, 3>> points;
  for (vtkIdType i = 0; i < WIDTH * WIDTH; ++i) {
    const vtkIdType row = i / WIDTH;
    points.push_back({static_cast<float>(i % WIDTH), static_cast<float>(row), height(engine)});
  }
  points.insert(points.end(), points.begin(), points.end());
  std::uniform_int_distribution<vtkIdType> twin(0, 1);
  std::uniform_int_distribution<vtkIdType> any(0, WIDTH * WIDTH - 1);
  const auto corner = [&](vtkIdType point) { return point + WIDTH * WIDTH * twin(engine); };
  Cells cells;
  for (vtkIdType i = 0; i < WIDTH * (WIDTH - 1); ++i) {
    if (i % WIDTH == WIDTH - 1 || i % 17 == 0) {
      continue;
    }
    const vtkIdType p[] = {corner(i), corner(i + 1), corner(i + WIDTH), corner(i + WIDTH + 1)};
    if (i % 3 == 0) {
      cells.strips.push_back({p[0], p[1], p[2], p[3]});
    } else {
      cells.polys.push_back({p[0], p[1], p[2]});
      cells.polys.push_back({p[2], p[1], p[3]});
    }
    if (i % 10 == 0) {
      cells.polys.push_back({p[0], corner(i), p[1]});
      cells.polys.push_back({p[0], p[1], any(engine)});
    }
  }
  const auto mesh = makePolyData(points, cells);
  const Lines lines = linesOf(*contourEdges(*mesh, BEND));
  EXPECT_GT(lines.size(), 50U);
  EXPECT_LT(lines.size(), 3U * WIDTH * WIDTH);
  EXPECT_EQ(lines, linesOfFilters(*mesh));
}

TEST(ContourEdgesTest, HaveNoLinesWithinPolygons) {
  // A square, not flat, beside one that stands on it, a line to and fro, and nothing but a point.
  const auto mesh = makePolyData({{0, 0, 0}, {1, 0, 0}, {1, 1, 1}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}},
                                 {.polys = {{0, 1, 2, 3}, {1, 0, 4, 5}, {0, 1, 0}, {2, 2, 2}}});
  const Lines lines = linesOf(*contourEdges(*mesh, BEND));
  EXPECT_EQ(lines.size(), 7U);
  EXPECT_EQ(lines.count({Point{0, 0, 0}, Point{1, 0, 0}}), 1U);
}

}  // namespace

}  // namespace vemo
