#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>

#include <cmath>
#include <numbers>

namespace vemo {

namespace {

vtkNew<vtkCellArray> makeCells(const Cells::List& cells) {
  vtkNew<vtkCellArray> array;
  for (const auto& cell : cells) {
    array->InsertNextCell(static_cast<vtkIdType>(cell.size()), cell.data());
  }
  return array;
}

}  // namespace

vtkSmartPointer<vtkPolyData> makePolyData(const std::vector<std::array<float, 3>>& points,
                                          const Cells& cells) {
  vtkNew<vtkPoints> places;
  for (const auto& point : points) {
    places->InsertNextPoint(point.data());
  }
  auto polyData = vtkSmartPointer<vtkPolyData>::New();
  polyData->SetPoints(places);
  polyData->SetVerts(makeCells(cells.verts));
  polyData->SetLines(makeCells(cells.lines));
  polyData->SetPolys(makeCells(cells.polys));
  polyData->SetStrips(makeCells(cells.strips));
  return polyData;
}

std::vector<std::array<float, 3>> flat(const std::vector<float>& coordinates) {
  std::vector<std::array<float, 3>> points;
  for (std::size_t i = 0; i + 1 < coordinates.size(); i += 2) {
    points.push_back({coordinates[i], coordinates[i + 1], 0});
  }
  return points;
}

vtkSmartPointer<vtkPolyData> makeRectangle(float left, float right, float bottom, float top, float z) {
  return makePolyData({{left, bottom, z}, {right, bottom, z}, {right, top, z}, {left, top, z}},
                      {.polys = {{0, 1, 2, 3}}});
}

vtkSmartPointer<vtkPolyData> makeStarInPlate() {
  constexpr vtkIdType CORNERS = 10;
  std::vector<std::array<float, 3>> points;
  Cells cells{.verts = {{0}}, .polys = {{}}};
  for (vtkIdType i = 0; i < CORNERS; ++i) {
    const double angle = 2.0 * std::numbers::pi * static_cast<double>(i) / CORNERS;
    const double radius = i % 2 == 0 ? 1.0 : 0.38;
    const double x = radius * std::cos(angle);
    const double y = radius * std::sin(angle);
    points.push_back({static_cast<float>(x), static_cast<float>(y), static_cast<float>(0.7 * x - 0.3 * y)});
    cells.polys[0].push_back(i);
    if (i % 2 == 1) {
      cells.polys.push_back({i - 1, (i + 1) % CORNERS, i});
    }
  }
  return makePolyData(points, cells);
}

}  // namespace vemo
