#include "geometry/StrayPoints.h"

#include "geometry/Points.h"
#include <vemo/geometry/CellKind.h>

#include <vtkCellArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <array>

namespace vemo {

namespace {

/// Single precision is enough for cells up to this many times smaller than the
/// bounds that they are drawn in.
constexpr double FAR = 1000.0;

/// The bounds of a few cells from all over; those of all cells contain them.
Box sampleCells(vtkPolyData& geometry) {
  Box box;
  for (const CellKindTraits& kind : CELL_KINDS) {
    vtkCellArray& cells = *kind.get(geometry);
    const vtkIdType count = cells.GetNumberOfCells();
    for (const vtkIdType cell : {vtkIdType(0), count / 3, count - count / 3, count - 1}) {
      if (cell < 0 || cell >= count) {
        continue;
      }
      vtkIdType size = 0;
      const vtkIdType* points = nullptr;
      cells.GetCellAtId(cell, size, points);
      for (vtkIdType i = 0; i < size; ++i) {
        box.add(toVector(geometry.GetPoint(points[i])));
      }
    }
  }
  return box;
}

}  // namespace

PointScan scanPoints(vtkPolyData& geometry) {
  PointScan scan;
  if (geometry.GetPoints() == nullptr) {
    return scan;
  }
  PointReader(*geometry.GetPoints()->GetData()).visit([&scan](const auto& points) {
    // A local variable stays in registers.
    Box bounds;
    for (vtkIdType i = 0; i < points.size(); ++i) {
      const Vector3 point = points[i];
      if (isFinite(point)) {
        bounds.add(point);
      } else {
        scan.nonFinite.resize(static_cast<std::size_t>(points.size()));
        scan.nonFinite[static_cast<std::size_t>(i)] = true;
      }
    }
    scan.bounds = bounds;
  });
  return scan;
}

PointMarks markFarPoints(vtkPolyData& geometry, const Box& bounds) {
  PointMarks marks;
  const double size = bounds.longestSide();
  // The sample mostly saves the pass over all cells.
  if (geometry.GetNumberOfCells() == 0 || size <= FAR * sampleCells(geometry).longestSide()) {
    return marks;
  }
  std::array<double, 6> used{};
  geometry.GetCellsBounds(used.data());
  const Box usedBox{{used[0], used[2], used[4]}, {used[1], used[3], used[5]}};
  if (size <= FAR * usedBox.longestSide()) {
    return marks;
  }
  const PointReader points(*geometry.GetPoints()->GetData());
  marks.resize(static_cast<std::size_t>(points.size()));
  for (vtkIdType i = 0; i < points.size(); ++i) {
    marks[static_cast<std::size_t>(i)] = !usedBox.contains(points[i]);
  }
  return marks;
}

}  // namespace vemo
