#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>

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

}  // namespace vemo
